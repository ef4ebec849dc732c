#pragma once

#include <QPointer>

namespace vellora {

/// Posts the host's message with the index of a photo. Silent without a host window, and once
/// the host window is gone.
class HostNotifier {
public:
    HostNotifier(QObject* window, unsigned message) : m_window(window), m_message(message) {}

    [[nodiscard]] QObject* window() const { return m_window; }
    void post(int index) const;

private:
    QPointer<QObject> m_window;
    unsigned m_message;
};

}  // namespace vellora
