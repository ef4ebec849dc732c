#include <QCoreApplication>
#include <QObject>

#include <gtest/gtest.h>

#include <vellora/host/HostMessage.h>

namespace vellora {
namespace {

class Receiver : public QObject {
public:
    int received = 0;
    int index = -1;

    bool event(QEvent* event) override {
        if (event->type() == HostMessageEvent::messageType()) {
            ++received;
            index = static_cast<HostMessageEvent*>(event)->firstParameter();
            return true;
        }
        return QObject::event(event);
    }
};

TEST(HostMessageTest, IsPostedNotSent) {
    Receiver receiver;
    QCoreApplication::postEvent(&receiver, new HostMessageEvent(1234U, 7, 0));
    EXPECT_EQ(receiver.received, 0);
    QCoreApplication::sendPostedEvents(&receiver);
    EXPECT_EQ(receiver.received, 1);
    EXPECT_EQ(receiver.index, 7);
    EXPECT_NE(HostMessageEvent::messageType(), QEvent::User);
}

}  // namespace
}  // namespace vellora
