#pragma once

#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDImage.h>

#include "base/ModuleState.h"
#include "host/Guard.h"

namespace vellora {

/// Takes the dialog's preview of a photo away for as long as it lives, so that the host gets the
/// photo as it is committed and at the size it asks for; without effect on other photos. The
/// image-buffer lock must be held.
class EditedPhotoPause {
public:
    explicit EditedPhotoPause(CDVDImage& image)
        : m_processor(&image == recordInEdit() ? image.GetProcessor() : nullptr) {
        if (m_processor != nullptr) {
            m_filter = m_processor->GetCurrentFilter();
            m_processor->ReleaseImages();
        }
    }
    ~EditedPhotoPause() {
        if (m_processor != nullptr) {
            m_processor->ReleaseImages();
            guarded([this] {
                m_processor->Rebuild(true);
                return S_OK;
            });
            m_processor->SetCurrentFilter(m_filter);
        }
    }
    EditedPhotoPause(const EditedPhotoPause&) = delete;
    EditedPhotoPause& operator=(const EditedPhotoPause&) = delete;

private:
    CPhotoProcessor* m_processor;
    COpencvFilterInterface* m_filter = nullptr;
};

}  // namespace vellora
