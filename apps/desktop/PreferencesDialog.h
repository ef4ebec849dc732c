#pragma once

#include <QDialog>

#include "desktop/Preferences.h"

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
    void chooseBackground();
    void showBackground();

    QLineEdit* m_language;
    QLineEdit* m_assets;
    QPushButton* m_background;
    COLORREF m_colour;
};

}  // namespace vellora::desktop
