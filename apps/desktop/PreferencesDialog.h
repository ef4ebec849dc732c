#pragma once

#include <QDialog>

#include "desktop/Preferences.h"

class QComboBox;
class QLineEdit;
class QPushButton;

namespace vellora::desktop {

/// Edits the preferences.
class PreferencesDialog : public QDialog {
    Q_OBJECT

public:
    PreferencesDialog(const Preferences& preferences, QWidget* parent);

    [[nodiscard]] Preferences preferences() const;

private:
    void fillLanguages(const QString& choice);
    /// Asks for a file when the user wants one that is not in the list.
    void languageActivated(int index);
    QWidget* assetsRow();
    void chooseBackground();
    void showBackground();

    QComboBox* m_language;
    QLineEdit* m_assets;
    QPushButton* m_background;
    QString m_choice;
    COLORREF m_colour;
};

}  // namespace vellora::desktop
