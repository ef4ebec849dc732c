#pragma once

#include <utility>

#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDImage.h>

#include "base/ModuleState.h"
#include "host/Guard.h"

namespace vellora {

inline bool isInEdit(const CDVDImage& image) {
    const OpenEdit* edit = OpenEdit::current();
    return edit != nullptr && edit->record() == &image;
}

/// Keeps the edit dialog as it is while the host renders a photo. The picture of the photo that is
/// being edited is put aside, so that the host gets it as it is committed and at the size it asks
/// for. The image-buffer lock must be held, or the thread be the dialog's.
class EditPause {
public:
    explicit EditPause(CDVDImage& image) {
        if (isInEdit(image)) {
            m_processor = image.GetProcessor();
            m_filter = m_processor->GetCurrentFilter();
            m_picture = m_processor->TakePicture();
        }
    }
    ~EditPause() {
        if (m_processor != nullptr) {
            m_processor->PutPicture(std::move(m_picture));
            m_processor->SetCurrentFilter(m_filter);
        }
        if (OpenEdit* edit = OpenEdit::current(); edit != nullptr) {
            guarded([edit] {
                edit->expandTexts();
                return S_OK;
            });
        }
    }
    EditPause(const EditPause&) = delete;
    EditPause& operator=(const EditPause&) = delete;

private:
    CPhotoProcessor* m_processor = nullptr;
    COpencvFilterInterface* m_filter = nullptr;
    BuiltPicture m_picture;
};

}  // namespace vellora
