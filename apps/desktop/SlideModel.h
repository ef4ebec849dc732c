#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QUndoStack>
#include <QUrl>
#include <memory>
#include <vector>

#include <vellora/host/ImageObj.h>

#include "desktop/Slide.h"

namespace vellora::desktop {

/// The slides of the show in their order, as a list for views, in step with the module's list.
class SlideModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role : int { SlideRole = Qt::UserRole };

    explicit SlideModel(QObject* parent = nullptr);
    ~SlideModel() override;

    /// The module's document of these slides.
    [[nodiscard]] CImageObj& document() { return *m_document; }
    [[nodiscard]] const std::vector<SlidePtr>& slides() const { return m_slides; }
    [[nodiscard]] int count() const { return static_cast<int>(m_slides.size()); }
    /// The slide of a row, or null.
    [[nodiscard]] SlidePtr slide(int row) const;
    /// The row of a slide, or -1.
    [[nodiscard]] int rowOf(quint64 slideId) const;

    /// What the user did to the list, to be taken back; relocating a photo is no step.
    [[nodiscard]] QUndoStack& history() { return m_history; }

    /// Empties the list, album and history included.
    void clear();
    /// Puts photos before a row; `count()` puts them last.
    void insert(int row, const std::vector<hostkit::ShowPhoto>& photos);
    void remove(QList<int> rows);
    /// Moves the rows, in their order, before another one.
    void moveTo(QList<int> rows, int before);
    /// Names another file for a photo. Missing photos that have moved along with it are found, too.
    /// @return The rows that have another file now.
    QList<int> relocate(int row, const QString& path);
    /// Shows these slides in this order. No step of the history.
    void arrange(const std::vector<SlidePtr>& slides);
    /// Tells the views to paint a row again.
    void refresh(int row);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    Qt::DropActions supportedDropActions() const override;
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

Q_SIGNALS:
    /// The user changed the list.
    void edited();
    /// Files were dropped before a row.
    void filesDropped(const QList<QUrl>& files, int row);

private:
    static QString describe(const Slide& slide);
    /// Whether rows of this list are dragged, not those of another window or program.
    [[nodiscard]] bool holdsOwnRows(const QMimeData& data) const;
    void removeOthers(const std::vector<SlidePtr>& kept);
    void reorder(std::vector<SlidePtr> order);
    void insertMissing(const std::vector<SlidePtr>& slides);
    /// Arranges the slides as a step of the history.
    void change(const QString& what, std::vector<SlidePtr> slides);
    /// Brings the module's list into the order of the slides.
    void rebuildDocument();

    std::unique_ptr<CImageObj> m_document;
    QByteArray m_mark;  ///< Differs for all lists of all programs.
    std::vector<SlidePtr> m_slides;
    QUndoStack m_history;
};

}  // namespace vellora::desktop

Q_DECLARE_METATYPE(vellora::desktop::SlidePtr)
