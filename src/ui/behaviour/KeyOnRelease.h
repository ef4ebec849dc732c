#pragma once

#include <QKeyEvent>

namespace vellora {

/// A key that acts when it is released. A release without its press does nothing: it belongs to
/// whatever closed on that press.
class KeyOnRelease {
public:
    void press(int key) { m_key = key; }
    /// @return Whether the key acts now.
    bool release(const QKeyEvent& event) {
        if (event.isAutoRepeat() || m_key == 0 || event.key() != m_key) {
            return false;
        }
        m_key = 0;
        return true;
    }

private:
    int m_key = 0;
};

}  // namespace vellora
