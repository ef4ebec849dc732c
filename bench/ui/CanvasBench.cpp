// What a user waits for on the canvas, at 600 x 450.

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QWindow>
#include <memory>

#include <benchmark/benchmark.h>

#include <vellora/base/HostText.h>
#include <vellora/base/PhotoListNode.h>
#include <vellora/filters/FilterCatalogue.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>
#include <vellora/model/DVDImageText.h>

#include "UiBenches.h"
#include "ui/EditSession.h"
#include "ui/canvas/PhotoEditShowWnd.h"

namespace vellora {
namespace {

/// A shown canvas with a photo and, if wanted, ten styled texts and ten vector clips.
class Desk {
public:
    explicit Desk(bool withSprites) : m_canvas(m_session) {
        const QString path = m_folder.filePath(QStringLiteral("photo.png"));
        benchScenery(1200, 900).save(path);
        setHostText(m_node.path, path);
        m_record.BindNode(&m_node, &m_album);
        m_record.GetProcessor()->Rebuild(true);
        m_session.setPhoto(&m_record, &m_album);
        if (withSprites) {
            addSprites();
        }
        m_canvas.show();
        while (!m_canvas.windowHandle()->isExposed()) {
            QCoreApplication::processEvents();
        }
        m_canvas.repaint();
    }
    ~Desk() { m_session.setPhoto(nullptr, nullptr); }

    EditSession& session() { return m_session; }
    CPhotoEditShowWnd& canvas() { return m_canvas; }
    CPhotoProcessor& processor() { return *m_record.GetProcessor(); }
    CDVDImageSprite* sprite(int index) { return m_record.GetSprites().GetAt(index); }

private:
    void addSprites() {
        QFile svg(m_folder.filePath(QStringLiteral("star.svg")));
        if (svg.open(QIODevice::WriteOnly)) {
            svg.write(
                "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 100 100'>"
                "<radialGradient id='g'><stop stop-color='#ff0'/><stop offset='1' "
                "stop-color='#f60'/></radialGradient><path fill='url(#g)' stroke='#820' "
                "d='M50 5 61 38 96 38 68 59 79 93 50 73 21 93 32 59 4 38 39 38z'/></svg>");
            svg.close();
        }
        TextStyle style;
        style.size = 36;
        style.effect.shadow = 1;
        style.effect.shadow_offset = 6;
        style.effect.shadow_angle = 45;
        style.effect.border = 1;
        style.effect.border_size = 3;
        style.effect.halo = 1;
        style.effect.halo_size = 6;
        style.effect.halo_blur = 4;
        style.effect.emboss = 1;
        style.effect.emboss_size = 4;
        style.effect.emboss_angle = 45;
        for (int index = 0; index < 10; ++index) {
            auto text = std::make_unique<CDVDImageText>(&m_record);
            text->SetStyle(style);
            text->SetText(QStringLiteral("Holiday %1").arg(index));
            text->SetPosition(20 + 30 * index, 40 * index);
            m_session.addSprite(std::move(text));
            auto clip = std::make_unique<CDVDImageProps>(&m_record, svg.fileName());
            clip->SetPosition(400 - 30 * index, 35 * index);
            clip->SetSize(120, 120);
            m_session.addSprite(std::move(clip));
        }
    }

    QTemporaryDir m_folder;
    _PHOTO_LIST_NODE m_node{};
    CDVDAlbumImage m_album;
    CDVDImage m_record;
    EditSession m_session;
    CPhotoEditShowWnd m_canvas;
};

/// Goal: at most 12 ms.
void dragRepaint(benchmark::State& state) {
    Desk desk(true);
    CDVDImageSprite* dragged = desk.sprite(5);
    int step = 0;
    for (auto _ : state) {
        desk.session().moveSprite(dragged, {100 + step % 50, 100 + step % 30});
        desk.canvas().repaint();
        ++step;
    }
}
BENCHMARK(dragRepaint)->Unit(benchmark::kMillisecond);

/// Goal: at most 60 ms for an adjustment, 250 ms for an art effect.
void sliderStep(benchmark::State& state, const COpencvFilterInterface* prototype) {
    Desk desk(false);
    const std::unique_ptr<COpencvFilterInterface> filter(prototype->Clone());
    CPhotoProcessor::SetPreviewROI(0.3F, 0.3F, 0.2F, 0.2F);
    desk.processor().SetCurrentFilter(filter.get());
    for (auto _ : state) {
        desk.canvas().Redraw();
        desk.canvas().repaint();
    }
    desk.processor().SetCurrentFilter(nullptr);
}

}  // namespace

void registerSliderSteps() {
    for (const COpencvFilterInterface* prototype : GetFilterPrototypes()) {
        const std::string name =
            (prototype->is_art_effect != 0 ? "sliderStep/art effect/" : "sliderStep/adjustment/") +
            QString::fromUtf16(prototype->GetName()).toStdString();
        benchmark::RegisterBenchmark(name.c_str(), sliderStep, prototype)
            ->Unit(benchmark::kMillisecond)
            ->MinTime(0.1);
    }
}

}  // namespace vellora
