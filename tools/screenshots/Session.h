#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <vector>

class QWidget;

namespace vellora::screenshots {

/// Plays an edit session in the open dialog, step by step from the event loop, and writes a
/// picture of each page.
class Session : public QObject {
    Q_OBJECT

public:
    /// @param prefix  Of the pictures' paths, with the folder.
    explicit Session(QString prefix);

    /// Starts to play as soon as a dialog is open.
    void Start();
    [[nodiscard]] bool Failed() const { return m_failed; }

private:
    void PlayNext();
    void Grab(const char* name);
    void Click(int controlId);
    void ChooseTab(int item);
    void ChooseRow(int controlId, int row, bool twice);
    void DragSprite(QPoint from, QPoint to);
    [[nodiscard]] QWidget* Control(int controlId);
    void AddSteps();

    QString m_prefix;
    std::vector<std::function<void()>> m_steps;
    std::size_t m_next = 0;
    bool m_failed = false;
};

}  // namespace vellora::screenshots
