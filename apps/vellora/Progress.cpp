#include "Progress.h"

#include <algorithm>
#include <cstdio>

#include "Console.h"

namespace vellora::cli {
namespace {

constexpr qsizetype kColumns = 78;

}  // namespace

Progress::Progress(qsizetype total, bool quiet)
    : m_total(total), m_shown(!quiet && isErrorTerminal()), m_escapes(allowsEscapes()) {}

Progress::~Progress() {
    clear();
}

void Progress::show(qsizetype number, const QString& name) {
    if (!m_shown) {
        return;
    }
    clear();
    const QString count = QStringLiteral("[%1/%2] ").arg(number).arg(m_total);
    QString shown = printable(name);
    if (count.size() + shown.size() > kColumns) {
        shown = QStringLiteral("...") +
                shown.right(std::max<qsizetype>(0, kColumns - count.size() - 3));
    }
    m_width = count.size() + shown.size();
    std::fputs((count + shown).toUtf8().constData(), stderr);
    std::fflush(stderr);
}

void Progress::clear() {
    if (m_width > 0) {
        const QByteArray blank = m_escapes ? QByteArray("\x1B[K") : QByteArray(m_width, ' ') + '\r';
        std::fprintf(stderr, "\r%s", blank.constData());
        m_width = 0;
    }
}

}  // namespace vellora::cli
