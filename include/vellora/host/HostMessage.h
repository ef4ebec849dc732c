#pragma once

/// @file
/// The notification that the edit dialog posts to the host.

#include <QEvent>

#include <vellora/base/Export.h>

namespace vellora {

/// Tells the host that the photo at an index was changed or left in the edit dialog.
///
/// The host passes the receiving object and a message number of its own choice to
/// `CImageObj::ShowProcessDialog`; the event is posted, never sent, and reaches the object's
/// `event` or `customEvent` once control is back in the event loop of its thread.
class VELLORA_EXPORT HostMessageEvent : public QEvent {
public:
    HostMessageEvent(unsigned message, int firstParameter, int secondParameter);

    /// The event type that this module registered; the same for all its messages.
    static QEvent::Type messageType();

    /// The host's message number.
    [[nodiscard]] unsigned message() const { return m_message; }
    /// The index of the photo concerned.
    [[nodiscard]] int firstParameter() const { return m_first; }
    /// Always 0.
    [[nodiscard]] int secondParameter() const { return m_second; }

private:
    unsigned m_message;
    int m_first;
    int m_second;
};

}  // namespace vellora
