#pragma once

#include <QDateTime>
#include <QLockFile>
#include <QObject>
#include <QStringList>
#include <memory>

#include "desktop/SlideModel.h"

namespace vellora::desktop {

/// The show that a window works on: its slides, where it is stored, and whether it has changes
/// that are not stored.
class ShowDocument : public QObject {
    Q_OBJECT

public:
    explicit ShowDocument(QObject* parent = nullptr);
    ~ShowDocument() override;

    [[nodiscard]] SlideModel& slides() { return m_slides; }
    /// The file of the show; empty for a new one.
    [[nodiscard]] const QString& path() const { return m_path; }
    [[nodiscard]] QString displayName() const;
    [[nodiscard]] bool isDirty() const { return m_dirty; }
    /// Whether someone else has written the show's file since it was opened or saved here.
    [[nodiscard]] bool isChangedOnDisk() const;
    void markDirty();
    /// For contents that turn out to be those of the file.
    void markClean();

    void startNew();

    enum class OpenResult { Opened, Failed, LockedByOther };
    /// Opens a show. On failure the present show stays.
    /// @param problems  Receives what was left out, or the reason of the failure.
    OpenResult open(const QString& path, QStringList* problems);
    /// The computer whose program has locked a show; empty when that cannot be told.
    static QString lockingComputer(const QString& show);
    /// Reads a show's contents without taking its name: an automatic copy, or the show of another
    /// window. The result counts as changed.
    bool import(const QString& source, const QString& path, QStringList* problems);
    bool save(const QString& path, QString* error);
    /// Writes the show's contents elsewhere; name and state stay.
    bool saveCopy(const QString& path, QString* error);
    /// The bytes that a save would write, to compare; empty when they cannot be told. Nothing may
    /// render the show meanwhile.
    [[nodiscard]] QByteArray contents();

    /// Adds photo files and the photo files of folders, upright by their orientation tags.
    /// @return The names of files that are no photos.
    QStringList addFiles(const QStringList& paths, int row, COLORREF background);

Q_SIGNALS:
    void stateChanged();

private:
    bool load(const QString& source, QStringList* problems);
    bool lock(const QString& path);
    void setState(const QString& path, bool dirty);

    /// What tells two states of a file apart.
    struct Stamp {
        QDateTime modified;
        qint64 size = 0;

        static Stamp of(const QString& file);
        bool operator==(const Stamp&) const = default;
    };

    SlideModel m_slides;
    QString m_path;
    Stamp m_stamp;
    QJsonObject m_unknown;
    std::unique_ptr<QLockFile> m_lock;
    bool m_dirty = false;
};

}  // namespace vellora::desktop
