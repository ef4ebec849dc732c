#pragma once

#include <QObject>
#include <QSize>
#include <QStringList>
#include <QTemporaryDir>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace vellora::desktop {

class ShowDocument;

/// How finished pictures are exported.
struct ExportOptions {
    enum Fit { Inside = 0, Fill = 1, Box = 100 };

    QString folder;
    QSize size;  ///< Empty: each photo's own size.
    Fit fit = Box;
    int quality = 90;
    bool numbered = true;  ///< Names start with the place in the show.
    QString assetsFolder;  ///< Of styles and clips; empty for the usual one.
};

/// Exports a show as it is now.
///
/// A copy of the show is rendered by `vellora render`, one process for each processor: the module
/// renders one photo at a time in a process. The show itself is free once the copy is made.
class ExportJob : public QObject {
    Q_OBJECT

public:
    explicit ExportJob(ExportOptions options, QObject* parent = nullptr);
    /// Cancels and waits.
    ~ExportJob() override;

    /// Copies the show. Nothing may render it meanwhile.
    /// @return False with the reason in `error`.
    bool prepare(ShowDocument& document, QString* error);
    /// How many photos the copy has.
    [[nodiscard]] int count() const { return static_cast<int>(m_captions.size()); }
    /// Begins; `finished` follows.
    void start();
    /// Stops at once. What is finished stays, and nothing else.
    void cancel();

Q_SIGNALS:
    /// So many photos are done, the named one just now.
    void progressed(int done, const QString& caption);
    /// @param failures  A line for each photo that was not exported, in the order of the show.
    /// @param damaged   The exported photos whose files could be read in part only.
    void finished(int exported, const QStringList& failures, bool cancelled,
                  const QStringList& damaged);

private:
    struct Worker;

    void startWorker(int index, int count);
    void readReports(Worker& worker);
    void endWorker(Worker& worker);
    void noteDone(int slide, const QString& failure);
    void sumUp();
    [[nodiscard]] QStringList arguments(int index, int count) const;
    /// Why a photo has no picture, in the user's language.
    [[nodiscard]] QString reasonFor(int slide) const;

    ExportOptions m_options;
    QTemporaryDir m_copy;
    QStringList m_captions;
    QStringList m_paths;
    std::vector<std::unique_ptr<Worker>> m_workers;
    std::map<int, QString> m_failures;
    std::set<int> m_damaged;
    int m_done = 0;
    int m_running = 0;
    bool m_cancelled = false;
};

}  // namespace vellora::desktop
