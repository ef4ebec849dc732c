#include "desktop/SlideModel.h"

#include <QDir>
#include <QFileInfo>
#include <QMimeData>
#include <QUuid>
#include <algorithm>
#include <iterator>
#include <unordered_set>

#include "desktop/MessageBox.h"

namespace vellora::desktop {
namespace {

const QString kRowsFormat = QStringLiteral("application/x-vellora-slides");

/// How a folder was moved.
struct Move {
    QString from;
    QString to;

    /// Where a file of the folder is now; empty for other files.
    [[nodiscard]] QString apply(const QString& path) const {
        const QString start = from + QLatin1Char('/');
        return path.startsWith(start) ? to + QLatin1Char('/') + path.mid(start.size()) : QString();
    }
};

/// The move that explains the new path of a file: the names at the end that both paths have in
/// common have stayed.
Move moveBetween(QString from, QString to) {
    const auto name = [](const QString& path) {
        return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
    };
    while (from.contains(QLatin1Char('/')) && to.contains(QLatin1Char('/')) &&
           name(from) == name(to)) {
        from.truncate(from.lastIndexOf(QLatin1Char('/')));
        to.truncate(to.lastIndexOf(QLatin1Char('/')));
    }
    return {from, to};
}

/// The rows, each once, ascending and existing.
QList<int> sound(QList<int> rows, int count) {
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    rows.removeIf([count](int row) { return row < 0 || row >= count; });
    return rows;
}

using Set = std::unordered_set<const Slide*>;

Set setOf(const std::vector<SlidePtr>& slides) {
    Set result;
    for (const SlidePtr& slide : slides) {
        result.insert(slide.get());
    }
    return result;
}

/// From one arrangement of the slides to another.
class Step : public QUndoCommand {
public:
    Step(SlideModel& model, const QString& what, std::vector<SlidePtr> after)
        : QUndoCommand(what), m_model(model), m_before(model.slides()), m_after(std::move(after)) {}

    void undo() override { m_model.arrange(m_before); }
    void redo() override { m_model.arrange(m_after); }

private:
    SlideModel& m_model;
    std::vector<SlidePtr> m_before;
    std::vector<SlidePtr> m_after;
};

}  // namespace

SlideModel::SlideModel(QObject* parent)
    : QAbstractListModel(parent),
      m_document(std::make_unique<CImageObj>()),
      m_mark(QUuid::createUuid().toByteArray()) {}

SlideModel::~SlideModel() = default;

SlidePtr SlideModel::slide(int row) const {
    return row >= 0 && row < count() ? m_slides[static_cast<std::size_t>(row)] : nullptr;
}

int SlideModel::rowOf(quint64 slideId) const {
    const auto found = std::find_if(m_slides.begin(), m_slides.end(),
                                    [slideId](const SlidePtr& s) { return s->id() == slideId; });
    return found != m_slides.end() ? static_cast<int>(found - m_slides.begin()) : -1;
}

void SlideModel::clear() {
    beginResetModel();
    m_history.clear();
    m_document->RemoveAllNodes();
    m_document->RemoveAllAlbumSprites();
    m_slides.clear();
    endResetModel();
}

void SlideModel::insert(int row, const std::vector<hostkit::ShowPhoto>& photos) {
    if (photos.empty()) {
        return;
    }
    std::vector<SlidePtr> slides = m_slides;
    std::vector<SlidePtr> added;
    added.reserve(photos.size());
    for (const hostkit::ShowPhoto& photo : photos) {
        added.push_back(std::make_shared<Slide>(photo, *m_document));
    }
    slides.insert(slides.begin() + std::clamp(row, 0, count()), added.begin(), added.end());
    change(tr("Add photos"), std::move(slides));
}

void SlideModel::remove(QList<int> rows) {
    rows = sound(std::move(rows), count());
    if (rows.isEmpty()) {
        return;
    }
    std::vector<SlidePtr> kept;
    for (int row = 0; row < count(); ++row) {
        if (!std::binary_search(rows.cbegin(), rows.cend(), row)) {
            kept.push_back(slide(row));
        }
    }
    change(tr("Remove photos"), std::move(kept));
}

void SlideModel::moveTo(QList<int> rows, int before) {
    rows = sound(std::move(rows), count());
    before = std::clamp(before, 0, count());
    std::vector<SlidePtr> order;
    std::vector<SlidePtr> moved;
    order.reserve(m_slides.size());
    int target = 0;
    for (int row = 0; row < count(); ++row) {
        const bool moves = std::binary_search(rows.cbegin(), rows.cend(), row);
        (moves ? moved : order).push_back(m_slides[static_cast<std::size_t>(row)]);
        target += !moves && row < before ? 1 : 0;
    }
    order.insert(order.begin() + target, moved.begin(), moved.end());
    if (order != m_slides) {
        change(tr("Move photos"), std::move(order));
    }
}

void SlideModel::change(const QString& what, std::vector<SlidePtr> slides) {
    m_history.push(new Step(*this, what, std::move(slides)));
}

void SlideModel::arrange(const std::vector<SlidePtr>& slides) {
    removeOthers(slides);
    const Set present = setOf(m_slides);
    std::vector<SlidePtr> order;
    std::copy_if(slides.begin(), slides.end(), std::back_inserter(order),
                 [&present](const SlidePtr& slide) { return present.contains(slide.get()); });
    reorder(std::move(order));
    insertMissing(slides);
    Q_EMIT edited();
}

void SlideModel::removeOthers(const std::vector<SlidePtr>& kept) {
    const Set stay = setOf(kept);
    const auto leaves = [&](int row) { return !stay.contains(slide(row).get()); };
    for (int row = count() - 1; row >= 0; --row) {
        if (!leaves(row)) {
            continue;
        }
        const int last = row;
        while (row > 0 && leaves(row - 1)) {
            --row;
        }
        beginRemoveRows({}, row, last);
        for (int gone = last; gone >= row; --gone) {
            m_document->RemoveAt(gone);
        }
        m_slides.erase(m_slides.begin() + row, m_slides.begin() + last + 1);
        endRemoveRows();
    }
}

void SlideModel::reorder(std::vector<SlidePtr> order) {
    if (order == m_slides) {
        return;
    }
    Q_EMIT layoutAboutToBeChanged();
    const QModelIndexList held = persistentIndexList();
    QModelIndexList renewed;
    for (const QModelIndex& index : held) {
        const auto at = std::find(order.begin(), order.end(), slide(index.row()));
        renewed.append(this->index(static_cast<int>(at - order.begin())));
    }
    m_slides = std::move(order);
    rebuildDocument();
    changePersistentIndexList(held, renewed);
    Q_EMIT layoutChanged();
}

void SlideModel::insertMissing(const std::vector<SlidePtr>& slides) {
    const Set present = setOf(m_slides);
    const auto isNew = [&](std::size_t at) { return !present.contains(slides[at].get()); };
    for (std::size_t first = 0; first < slides.size(); ++first) {
        if (!isNew(first)) {
            continue;
        }
        std::size_t end = first + 1;
        while (end < slides.size() && isNew(end)) {
            ++end;
        }
        beginInsertRows({}, static_cast<int>(first), static_cast<int>(end) - 1);
        m_slides.insert(m_slides.begin() + static_cast<std::ptrdiff_t>(first),
                        slides.begin() + static_cast<std::ptrdiff_t>(first),
                        slides.begin() + static_cast<std::ptrdiff_t>(end));
        rebuildDocument();
        endInsertRows();
        first = end;
    }
}

void SlideModel::rebuildDocument() {
    m_document->RemoveAllNodes();
    for (const SlidePtr& slide : m_slides) {
        m_document->AddNode(slide->node());
    }
}

QList<int> SlideModel::relocate(int row, const QString& path) {
    const SlidePtr found = slide(row);
    if (found == nullptr) {
        return {};
    }
    const Move move = moveBetween(found->path(), path);
    found->relocate(path);
    QList<int> rows{row};
    for (int other = 0; other < count(); ++other) {
        const SlidePtr candidate = slide(other);
        const QString moved = candidate->isMissing() ? move.apply(candidate->path()) : QString();
        if (QFileInfo(moved).isFile()) {
            candidate->relocate(moved);
            rows.append(other);
        }
    }
    for (const int changed : rows) {
        refresh(changed);
    }
    Q_EMIT edited();
    return rows;
}

void SlideModel::refresh(int row) {
    if (row >= 0 && row < count()) {
        Q_EMIT dataChanged(index(row), index(row));
    }
}

int SlideModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QString SlideModel::describe(const Slide& slide) {
    return QDir::toNativeSeparators(slide.path()) +
           (slide.isMissing() ? tr("\nThis file is missing. Its edits are kept.") : QString());
}

QVariant SlideModel::data(const QModelIndex& index, int role) const {
    const SlidePtr found = slide(index.row());
    if (found == nullptr) {
        return {};
    }
    switch (role) {
        case Qt::DisplayRole:
        case Qt::AccessibleTextRole:
            return found->caption();
        case Qt::AccessibleDescriptionRole:
            return describe(*found);
        case Qt::ToolTipRole:
            return shownAsItIs(describe(*found));
        case SlideRole:
            return QVariant::fromValue(found);
        default:
            return {};
    }
}

Qt::ItemFlags SlideModel::flags(const QModelIndex& index) const {
    return QAbstractListModel::flags(index) |
           (index.isValid() ? Qt::ItemIsDragEnabled : Qt::ItemIsDropEnabled);
}

Qt::DropActions SlideModel::supportedDropActions() const {
    return Qt::MoveAction | Qt::CopyAction;
}

QStringList SlideModel::mimeTypes() const {
    return {kRowsFormat, QStringLiteral("text/uri-list")};
}

QMimeData* SlideModel::mimeData(const QModelIndexList& indexes) const {
    QByteArray rows = m_mark;
    for (const QModelIndex& index : indexes) {
        rows += ' ' + QByteArray::number(index.row());
    }
    auto* data = new QMimeData;
    data->setData(kRowsFormat, rows);
    return data;
}

bool SlideModel::canDropMimeData(const QMimeData* data, Qt::DropAction /*action*/, int /*row*/,
                                 int /*column*/, const QModelIndex& /*parent*/) const {
    return holdsOwnRows(*data) || data->hasUrls();
}

bool SlideModel::holdsOwnRows(const QMimeData& data) const {
    return data.data(kRowsFormat).startsWith(m_mark);
}

bool SlideModel::dropMimeData(const QMimeData* data, Qt::DropAction /*action*/, int row,
                              int /*column*/, const QModelIndex& parent) {
    if (row < 0) {
        row = parent.isValid() ? parent.row() : count();
    }
    if (holdsOwnRows(*data)) {
        QList<int> rows;
        for (const QByteArray& number : data->data(kRowsFormat).mid(m_mark.size()).split(' ')) {
            bool sane = false;
            const int value = number.toInt(&sane);
            if (sane) {
                rows.append(value);
            }
        }
        moveTo(rows, row);
        // The view would remove the rows of a move; they are moved already.
        return false;
    }
    if (data->hasUrls()) {
        Q_EMIT filesDropped(data->urls(), row);
        return true;
    }
    return false;
}

}  // namespace vellora::desktop
