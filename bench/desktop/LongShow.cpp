// A long show in the desktop program: opening it, scrolling through it, memory. The photos given
// are linked under as many names as the show has photos.
//
// vellora_desktop_bench COUNT PHOTO...

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QScrollBar>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <vector>

#include <sys/resource.h>

#include "desktop/MainWindow.h"
#include "desktop/ShowDocument.h"
#include "desktop/SlideView.h"
#include "desktop/Thumbnails.h"

namespace vellora::desktop {
namespace {

constexpr int kFrameMs = 16;
constexpr int kScrollPixels = 120;  // a notch of the wheel

double processorMs() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// Measures the turns of the event loop: from the first event to the next time it would sleep.
class Turns : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        if (m_measures && !m_wall.isValid()) {
            m_wall.start();
            m_processor = processorMs();
        }
        return QApplication::notify(receiver, event);
    }

    void begin() {
        m_walls.clear();
        m_processors.clear();
        m_wall.invalidate();
        m_measures = true;
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
                &Turns::end, Qt::UniqueConnection);
    }

    void print(const char* what) {
        m_measures = false;
        std::printf("%s: %zu turns\n", what, m_walls.size());
        print("  wall", m_walls);
        print("  processor", m_processors);
    }

private:
    static void print(const char* what, std::vector<double>& times) {
        std::sort(times.begin(), times.end());
        if (!times.empty()) {
            std::printf("%s: median %.2f ms, 99 %% %.2f ms, worst %.2f ms\n", what,
                        times[times.size() / 2], times[times.size() * 99 / 100], times.back());
        }
    }

    void end() {
        if (m_wall.isValid()) {
            m_walls.push_back(static_cast<double>(m_wall.nsecsElapsed()) / 1e6);
            m_processors.push_back(processorMs() - m_processor);
            m_wall.invalidate();
        }
    }

    bool m_measures = false;
    QElapsedTimer m_wall;
    double m_processor = 0.0;
    std::vector<double> m_walls;
    std::vector<double> m_processors;
};

/// Asks once in each frame.
void waitUntil(const std::function<bool()>& condition) {
    QEventLoop loop;
    QTimer frames;
    frames.setTimerType(Qt::PreciseTimer);
    QObject::connect(&frames, &QTimer::timeout, &loop, [&] {
        if (condition()) {
            loop.quit();
        }
    });
    frames.start(kFrameMs);
    loop.exec();
}

QString makeShow(const QString& folder, int count, const QStringList& photos) {
    QStringList names;
    for (int k = 0; k < count; ++k) {
        names.append(QStringLiteral("%1/photo-%2.jpg").arg(folder).arg(k, 5, 10, QLatin1Char('0')));
        QFile::link(QFileInfo(photos[k % photos.size()]).absoluteFilePath(), names.last());
    }
    ShowDocument document;
    QElapsedTimer clock;
    clock.start();
    document.addFiles(names, 0, 0);
    std::printf("photos added after %lld ms\n", static_cast<long long>(clock.elapsed()));
    QString show = folder + QStringLiteral("/long.vshow");
    QString error;
    clock.start();
    document.save(show, &error);
    std::printf("saved after %lld ms\n", static_cast<long long>(clock.elapsed()));
    return show;
}

bool showsAllThumbnails(MainWindow& window, Thumbnails& thumbnails) {
    const SlideView::Rows rows = window.view().visibleRows();
    bool all = true;
    for (int row = rows.begin; row < rows.end; ++row) {
        all = !thumbnails.picture(window.document().slides().slide(row)).isNull() && all;
    }
    return all;
}

void scrollThrough(Turns& turns, SlideView& view) {
    QScrollBar& bar = *view.verticalScrollBar();
    turns.begin();
    waitUntil([&bar] {
        bar.setValue(bar.value() + kScrollPixels);
        return bar.value() == bar.maximum();
    });
    turns.print("scrolling");
}

void run(Turns& turns, int count, const QStringList& photos) {
    const QTemporaryDir folder;
    const QString show = makeShow(folder.path(), count, photos);

    QElapsedTimer clock;
    clock.start();
    MainWindow window;
    Thumbnails& thumbnails = *window.findChild<Thumbnails*>();
    int arrived = 0;
    QObject::connect(&thumbnails, &Thumbnails::updated, &window, [&arrived] { ++arrived; });
    const auto allShown = [&] { return showsAllThumbnails(window, thumbnails); };
    window.show();
    {
        turns.begin();
        window.openPaths({show});
        window.view().viewport()->repaint();
        std::printf("first picture of the window after %lld ms\n",
                    static_cast<long long>(clock.elapsed()));
        waitUntil(allShown);
        std::printf("thumbnails of the first page after %lld ms, %d made\n",
                    static_cast<long long>(clock.elapsed()), arrived);
        waitUntil([&window, count] {
            return window.view().visualRect(window.document().slides().index(count - 1)).isValid();
        });
        turns.print("opening");
    }
    scrollThrough(turns, window.view());
    clock.start();
    waitUntil(allShown);
    std::printf("thumbnails of the last page after another %lld ms, %d made in all\n",
                static_cast<long long>(clock.elapsed()), arrived);
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("peak memory %ld MB\n", usage.ru_maxrss / 1024);
}

}  // namespace
}  // namespace vellora::desktop

int main(int argc, char** argv) {
    QStandardPaths::setTestModeEnabled(true);
    vellora::desktop::Turns turns(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const int count = arguments.value(1).toInt();
    if (count < 1 || arguments.size() < 3) {
        std::fputs("usage: vellora_desktop_bench COUNT PHOTO...\n", stderr);
        return 2;
    }
    for (const QString& photo : arguments.mid(2)) {
        if (!QFileInfo::exists(photo)) {
            std::fprintf(stderr, "%s: no such file\n", qUtf8Printable(photo));
            return 2;
        }
    }
    vellora::desktop::run(turns, count, arguments.mid(2));
    return 0;
}
