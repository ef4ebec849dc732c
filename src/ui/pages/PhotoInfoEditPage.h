#pragma once

#include <QString>

#include "ui/pages/EditPage.h"

class QLineEdit;
class QPlainTextEdit;

namespace vellora {

struct _PHOTO_LIST_NODE;
class EditSession;

/// The information page: title and description of a photo, with the values of the host record
/// that it carries through.
class CPhotoInfoEditPage : public CEditPage {
    Q_OBJECT

public:
    /// @param session  Not owned; outlives the page.
    explicit CPhotoInfoEditPage(EditSession& session, QWidget* parent = nullptr);

    /// Takes title, description, link and the carried values from the session's photo.
    void Load();
    /// Writes them back into the photo that they were taken from.
    void Save();
    /// Forgets the photo, whose record may be gone.
    void Forget();

    /// Opens the photo's link: command 3013, which no control of the page sends.
    void OpenLink();

private:
    void BuildControls();
    void OnTitleChanged();
    void OnDescriptionChanged();
    void ShowProblem(std::int32_t textId);
    void WriteRecord(_PHOTO_LIST_NODE& photo) const;

    EditSession& m_session;
    _PHOTO_LIST_NODE* m_photo = nullptr;  ///< Not owned.
    QLineEdit* m_title;
    QPlainTextEdit* m_descriptionEdit;
    QString m_link;
    QString m_loadedDescription;
    QString m_shownDescription;  ///< What the control made of it.  ///< As in the record, with its
                                 ///< own line ends.
    std::int32_t m_carried = 0;
    std::int32_t m_firstDuration = 2;
    std::int32_t m_secondDuration = 2;
};

}  // namespace vellora
