// What a user waits for when the edit dialog opens or goes to another photo, at 24 megapixels.

#include <QCoreApplication>
#include <QImage>
#include <QTemporaryDir>
#include <QWindow>
#include <array>
#include <memory>

#include <benchmark/benchmark.h>

#include <vellora/base/HostText.h>
#include <vellora/base/PhotoListNode.h>
#include <vellora/host/ImageObj.h>

#include "UiBenches.h"
#include "base/PhotoDecoder.h"
#include "ui/dialog/ImageProcessDialog.h"

namespace vellora {
namespace {

/// A show of two large photos.
class LargeShow {
public:
    LargeShow() {
        for (int index = 0; index < 2; ++index) {
            const QString path = m_folder.filePath(QStringLiteral("photo%1.jpg").arg(index));
            benchScenery(6000, 4000).save(path, "JPEG", 90);
            setHostText(m_photos[static_cast<std::size_t>(index)].path, path);
            document.AddPhotoListNode(&m_photos[static_cast<std::size_t>(index)],
                                      &m_handles[static_cast<std::size_t>(index)]);
        }
    }
    ~LargeShow() {
        document.RemoveAllNodes();
        for (_HNODE* handle : m_handles) {
            ReleaseNode(handle);
        }
    }

    [[nodiscard]] QString firstFile() const { return hostText(m_photos[0].path); }

    CImageObj document;

private:
    QTemporaryDir m_folder;
    std::array<_PHOTO_LIST_NODE, 2> m_photos{};
    std::array<_HNODE*, 2> m_handles{};
};

void paint(QWidget& window) {
    window.show();
    while (!window.windowHandle()->isExposed()) {
        QCoreApplication::processEvents();
    }
    window.repaint();
}

/// What the two below are compared with.
void decode24MegaPixels(benchmark::State& state) {
    const LargeShow show;
    for (auto _ : state) {
        benchmark::DoNotOptimize(decodeJpeg(show.firstFile()).image.get());
    }
}
BENCHMARK(decode24MegaPixels)->Unit(benchmark::kMillisecond);

/// Goal: at most 1.5 times the decoding and 300 ms.
void openDialog(benchmark::State& state) {
    LargeShow show;
    for (auto _ : state) {
        CImageProcessDialog dialog(show.document, 0, HostNotifier(nullptr, 0));
        paint(dialog);
    }
}
BENCHMARK(openDialog)->Unit(benchmark::kMillisecond);

/// The same goal.
void nextPhoto(benchmark::State& state) {
    LargeShow show;
    CImageProcessDialog dialog(show.document, 0, HostNotifier(nullptr, 0));
    paint(dialog);
    for (auto _ : state) {
        dialog.OnToolCommand(dialog.GetCurrentIndex() == 0 ? ToolCommand::Next
                                                           : ToolCommand::Previous);
        dialog.repaint();
    }
}
BENCHMARK(nextPhoto)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vellora
