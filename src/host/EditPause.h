#pragma once

#include <utility>

#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDImage.h>

#include "base/ModuleState.h"

namespace vellora {

inline bool isInEdit(const CDVDImage& image) {
    const OpenEdit* edit = OpenEdit::current();
    return edit != nullptr && edit->record() == &image;
}

/// Keeps the edit dialog as it is while the host renders a photo. The pictures of the photo that is
/// being edited are put aside, so that the host gets it as it is committed and at the size it asks
/// for. The image-buffer lock must be held, or the thread be the dialog's.
class EditPause {
public:
    explicit EditPause(CDVDImage& image) {
        if (isInEdit(image)) {
            m_processor = image.GetProcessor();
            m_pictures = m_processor->TakePictures();
        }
    }
    ~EditPause() {
        if (m_processor != nullptr) {
            m_processor->PutPictures(std::move(m_pictures));
        }
        if (OpenEdit* edit = OpenEdit::current(); edit != nullptr) {
            edit->expandTexts();
        }
    }
    EditPause(const EditPause&) = delete;
    EditPause& operator=(const EditPause&) = delete;

private:
    CPhotoProcessor* m_processor = nullptr;
    PhotoPictures m_pictures;
};

}  // namespace vellora
