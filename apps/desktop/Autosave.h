#pragma once

#include <QLockFile>
#include <QObject>
#include <QTimer>
#include <memory>

namespace vellora::desktop {

class ShowDocument;

/// Keeps an automatic copy of a show with unsaved changes, so that a crash loses little: beside
/// the show where its folder can be written, else among the program's own data. Copies that a
/// crash left behind stay as they are until the user takes or refuses them.
class Autosave : public QObject {
    Q_OBJECT

public:
    explicit Autosave(ShowDocument& document, QObject* parent = nullptr);
    ~Autosave() override;

    /// Writes the copy now when there are changes; removes it when there are none.
    /// @return False when the changes could not be written.
    bool update();
    /// Removes the copy: the user saved, or does not want the changes.
    void discard();

    /// The copies of a show that nobody has taken or refused yet, the newest first. The show itself
    /// may have been saved since, or be gone.
    static QStringList copiesOf(const QString& show);
    /// Copies of shows that were never saved, left behind by a program that ended without asking.
    static QStringList orphans();
    /// Removes a copy with its edits.
    static void remove(const QString& copy);

Q_SIGNALS:
    /// It is time for `update`. Whoever knows that nothing renders the show calls it.
    void due();

private:
    /// Where the copy may lie, the best place first.
    [[nodiscard]] QStringList copyPaths();
    /// The first name that is not that of another copy; empty when all are taken.
    [[nodiscard]] QString freeName(const QStringList& names) const;

    ShowDocument& m_document;
    QTimer m_timer;
    QString m_copy;
    std::unique_ptr<QLockFile> m_untitledLock;
    QString m_untitled;
};

}  // namespace vellora::desktop
