#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QMessageBox>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <csignal>
#include <functional>
#include <utility>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "desktop/Preferences.h"

namespace vellora::desktop {

/// A disk of a few kilobytes, where the test may make one.
class SmallDisk {
public:
    explicit SmallDisk(QString folder) : m_folder(std::move(folder)) {
        m_isMounted = QDir().mkpath(m_folder) &&
                      run(QStringLiteral("mount"),
                          {QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"),
                           QStringLiteral("size=64k"), QStringLiteral("tmpfs"), m_folder});
    }
    ~SmallDisk() {
        if (m_isMounted) {
            run(QStringLiteral("umount"), {m_folder});
        }
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    [[nodiscard]] bool isThere() const { return m_isMounted; }

    bool setReadOnly(bool readOnly) {
        return run(
            QStringLiteral("mount"),
            {QStringLiteral("-o"),
             readOnly ? QStringLiteral("remount,ro") : QStringLiteral("remount,rw"), m_folder});
    }

private:
    static bool run(const QString& program, const QStringList& arguments) {
        QProcess process;
        process.start(program, arguments);
        return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit &&
               process.exitCode() == 0;
    }

    QString m_folder;
    bool m_isMounted = false;
};

/// No file grows beyond a size while it lives, as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before{};
    void (*m_handler)(int);
};

/// A folder with photos of plain colours, and settings that touch nobody's own.
struct DesktopTest : testing::Test {
    DesktopTest() {
        // Tests run beside each other, each in a process with a home of its own.
        static const QTemporaryDir home;
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.filePath(QStringLiteral("config"))));
        qputenv("XDG_DATA_HOME", QFile::encodeName(home.filePath(QStringLiteral("data"))));
        QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)).removeRecursively();
        Preferences preferences;
        preferences.language = QStringLiteral("english");
        preferences.store();
    }

    QTemporaryDir folder;

    QString photo(const QString& name, QSize size = {80, 60}, QColor colour = Qt::darkGreen) {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(colour);
        const QString path = folder.filePath(name);
        EXPECT_TRUE(picture.save(path));
        return path;
    }

    /// Presses a button of the message box that comes next.
    /// @param seen  Is told of the box before.
    static void answerNext(QMessageBox::ButtonRole role,
                           const std::function<void(const QMessageBox&)>& seen = {}) {
        QTimer::singleShot(0, [role, seen] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            if (seen) {
                seen(*box);
            }
            for (QAbstractButton* button : box->buttons()) {
                if (box->buttonRole(button) == role) {
                    button->click();
                    return;
                }
            }
            ADD_FAILURE() << "no such button";
            box->reject();
        });
    }

    /// Runs the event loop until something holds; fails the test after ten seconds.
    static void waitFor(const std::function<bool()>& condition, const char* what) {
        EXPECT_TRUE(QTest::qWaitFor(condition, 10'000)) << what;
    }
};

}  // namespace vellora::desktop
