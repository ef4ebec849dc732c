#pragma once

#include <QDialog>

#include "desktop/ExportJob.h"

class QComboBox;
class QLineEdit;
class QCheckBox;
class QSpinBox;

namespace vellora::desktop {

/// Asks where and how to export.
class ExportDialog : public QDialog {
    Q_OBJECT

public:
    ExportDialog(int slides, QWidget* parent);

    [[nodiscard]] ExportOptions options() const;

private:
    void restore();
    void chooseFolder();
    void acceptChecked();

    QLineEdit* m_folder;
    QCheckBox* m_ownSize;
    QSpinBox* m_width;
    QSpinBox* m_height;
    QComboBox* m_fit;
    QSpinBox* m_quality;
    QCheckBox* m_numbered;
};

}  // namespace vellora::desktop
