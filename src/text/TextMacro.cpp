#include <array>

#include <vellora/base/HostText.h>
#include <vellora/text/TextMacro.h>

#include "text/PhotoFacts.h"

namespace vellora {
namespace {

constexpr qsizetype kMaxExpansion = 1'000'000;

QDate g_fixedDate;

/// Paths come from either family of systems.
qsizetype lastSeparator(QStringView path) {
    return std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/'));
}

const _PHOTO_LIST_NODE* photoBehind(const CDVDImage* record) {
    return record != nullptr ? photoOf(*record) : nullptr;
}

/// Searches that never pass the same characters twice, so that expansion stays linear.
class ForwardSearch {
public:
    ForwardSearch(QStringView text, QStringView wanted) : m_text(text), m_wanted(wanted) {}

    /// The first match at or after `from`, or the end of the text. `from` must not fall.
    qsizetype at(qsizetype from) {
        if (m_found < from) {
            const qsizetype found = m_text.indexOf(m_wanted, from);
            m_found = found < 0 ? m_text.size() : found;
        }
        return m_found;
    }

private:
    QStringView m_text;
    QStringView m_wanted;
    qsizetype m_found = -1;
};

}  // namespace

QDate macroDate() {
    return g_fixedDate.isValid() ? g_fixedDate : QDate::currentDate();
}

void setMacroDate(QDate date) {
    g_fixedDate = date;
}

struct CTextMacro::Row {
    QStringView token;
    QString (CTextMacro::*value)() const;
};

void CTextMacro::Bind(const CDVDImage* record) {
    const _PHOTO_LIST_NODE* photo = photoBehind(record);
    m_record = record;
    m_path = photo != nullptr ? hostText(photo->path) : QString();
}

int CTextMacro::Expand(const QString& source, QString& result) const {
    const QStringView text(source);
    ForwardSearch starts(text, u"$[");
    ForwardSearch nextStarts(text, u"$[");
    ForwardSearch ends(text, u"]");
    QString expansion;
    qsizetype p = 0;
    while (p < text.size() && expansion.size() < kMaxExpansion) {
        const qsizetype start = starts.at(p);
        const qsizetype end = ends.at(start);
        const qsizetype next = start < text.size() ? nextStarts.at(start + 1) : text.size();
        const bool escaped = start < text.size() && start > 0 && text[start - 1] == u'$';
        const bool cutShort = end < text.size() && next < end;
        if (escaped) {
            // The "$" before the start may lie before p when it closed the piece before.
            expansion += text.sliced(p, std::max(start - 1 - p, qsizetype{0}));
            expansion += u"$[";
            expansion += cutShort ? text.sliced(start + 2, next - start - 2) : QStringView();
            p = cutShort ? next : start + 2;
        } else if (cutShort) {
            expansion += text.sliced(p, next - p);
            p = next;
        } else if (end == text.size()) {
            expansion += text.sliced(p);
            p = text.size();
        } else {
            expansion += text.sliced(p, start - p);
            expansion += ValueOf(text.sliced(start, end + 1 - start));
            p = end + 1;
        }
    }
    result = expansion;
    return 1;
}

QString CTextMacro::ValueOf(QStringView token) const {
    static constexpr std::array kRows = std::to_array<Row>({
        {u"$[F]", &CTextMacro::FileName},
        {u"$[f]", &CTextMacro::FileTitle},
        {u"$[e]", &CTextMacro::Extension},
        {u"$[t]", &CTextMacro::Title},
        {u"$[d]", &CTextMacro::Description},
        {u"$[T]", &CTextMacro::Date},
        {u"$[P]", &CTextMacro::SlideCount},
        {u"$[p]", &CTextMacro::SlideNumber},
        {u"$[o]", &CTextMacro::FolderName},
        {u"$[D]", &CTextMacro::GetPath},
    });
    const auto* row = std::ranges::find(kRows, token, &Row::token);
    return row != kRows.end() ? (this->*row->value)() : QString();
}

QString CTextMacro::FileName() const {
    const qsizetype separator = lastSeparator(m_path);
    return separator < 0 ? QString() : m_path.sliced(separator + 1);
}

QString CTextMacro::FileTitle() const {
    const QString name = FileName();
    const qsizetype stop = name.lastIndexOf(u'.');
    return stop < 0 ? name : name.first(stop);
}

QString CTextMacro::Extension() const {
    const QString name = FileName();
    const qsizetype stop = name.lastIndexOf(u'.');
    return stop < 0 ? QString() : name.sliced(stop + 1);
}

QString CTextMacro::Title() const {
    const _PHOTO_LIST_NODE* photo = photoBehind(m_record);
    return photo != nullptr ? hostText(photo->title) : QString();
}

QString CTextMacro::Description() const {
    const _PHOTO_LIST_NODE* photo = photoBehind(m_record);
    return photo != nullptr ? hostText(photo->description) : QString();
}

QString CTextMacro::Date() const {
    const QDate today = macroDate();
    return QString::asprintf("%04d:%02d:%02d", today.year(), today.month(), today.day());
}

QString CTextMacro::SlideCount() const {
    return QString::number(m_slideCount);
}

QString CTextMacro::SlideNumber() const {
    return QString::number(qint64{m_slideIndex} + 1);
}

QString CTextMacro::FolderName() const {
    const qsizetype separator = lastSeparator(m_path);
    if (separator < 0) {
        return {};
    }
    const QString folder = m_path.first(separator);
    const qsizetype outer = lastSeparator(folder);
    return outer < 0 ? QString() : folder.sliced(outer + 1);
}

}  // namespace vellora
