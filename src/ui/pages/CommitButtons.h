#pragma once

#include "ui/behaviour/CropFrame.h"

namespace vellora {

/// When "Save" and "Restore To Original" can be used.
class CommitButtons {
public:
    [[nodiscard]] bool canSave() const { return m_canSave; }
    [[nodiscard]] bool canRestore() const { return m_canRestore; }

    /// Another photo is shown.
    /// @param hasSteps  It has crops or filters that could be taken back.
    void photoChanged(bool hasSteps) {
        m_canSave = false;
        m_canRestore = hasSteps;
    }
    /// @param item  The row in the list; row 0 stands for no filter.
    void filterSelected(int item, CropMode mode) {
        if (item != 0) {
            m_canSave = true;
            m_canRestore = true;
        } else if (mode == kCropNone) {
            m_canSave = false;
        }
    }
    /// @param item  The selected row, or -1 for none.
    void cropModeChosen(CropMode mode, int item) {
        if (mode != kCropNone) {
            m_canSave = true;
        } else if (item == 0) {
            m_canSave = false;
        }
    }
    void saved() {
        m_canSave = false;
        m_canRestore = true;
    }
    void restored() {
        m_canSave = false;
        m_canRestore = false;
    }

private:
    bool m_canSave = false;
    bool m_canRestore = false;
};

}  // namespace vellora
