#include "base/SafeFile.h"

#include <QFile>
#include <QThread>
#include <cerrno>

#if defined(Q_OS_WIN)
#include <qt_windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace vellora {
namespace {

constexpr int kOpenAttempts = 5;
constexpr unsigned long kPauseMilliseconds = 250;

#if defined(Q_OS_WIN)

unsigned lastSystemError() {
    return GetLastError();
}

bool heldByAnother(const QString& path) {
    const HANDLE handle = CreateFileW(reinterpret_cast<const wchar_t*>(path.utf16()), GENERIC_WRITE,
                                      FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return GetLastError() == ERROR_SHARING_VIOLATION;
    }
    CloseHandle(handle);
    return false;
}

#else

unsigned lastSystemError() {
    return static_cast<unsigned>(errno);
}

/// Advisory locks are what a program has here to keep others from replacing a file.
bool heldByAnother(const QString& path) {
    const int file = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) {
        return false;
    }
    struct flock range {};
    range.l_type = F_WRLCK;
    range.l_whence = SEEK_SET;
    const bool rangeLocked = fcntl(file, F_GETLK, &range) == 0 && range.l_type != F_UNLCK;
    const bool fileLocked = flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    close(file);
    return rangeLocked || fileLocked;
}

#endif

bool waitUntilFree(const QString& path) {
    for (int attempt = 1; heldByAnother(path); ++attempt) {
        if (attempt == kOpenAttempts) {
            return false;
        }
        QThread::msleep(kPauseMilliseconds);
    }
    return true;
}

}  // namespace

SafeFile::SafeFile(const QString& path) : m_file(path) {}

bool SafeFile::Open() {
    if (waitUntilFree(m_file.fileName()) && m_file.open(QIODevice::WriteOnly)) {
        return true;
    }
    m_diagnosis = QString::asprintf("Create project file %ls error: handle=%x dwLastCode=0x%x",
                                    qUtf16Printable(m_file.fileName()),
                                    static_cast<unsigned>(m_file.handle()), lastSystemError());
    return false;
}

bool SafeFile::Write(const QByteArray& bytes) {
    const qint64 written = m_file.write(bytes);
    if (written == bytes.size() && m_file.flush()) {
        return true;
    }
    m_diagnosis = QString::asprintf(
        "Write project file %s: handle=%x dwLastCode=0x%x, dwWriteBytes=%u dwWritenBytes=%u",
        written >= 0 && written < bytes.size() ? "deny" : "error",
        static_cast<unsigned>(m_file.handle()), lastSystemError(),
        static_cast<unsigned>(bytes.size()), static_cast<unsigned>(written));
    m_file.cancelWriting();
    return false;
}

bool SafeFile::Commit() {
    const auto handle = static_cast<unsigned>(m_file.handle());
    if (m_file.commit()) {
        return true;
    }
    m_diagnosis = QString::asprintf("Close project file handle error: handle=%x dwLastCode=0x%x",
                                    handle, lastSystemError());
    return false;
}

}  // namespace vellora
