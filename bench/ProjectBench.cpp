// A project of many photos: loading against the parser's own time for the same file, saving
// against the parser's own writing of the same bytes, and the memory that a load takes.

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <ctime>
#include <memory>
#include <vector>

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <pugixml.hpp>

#include <vellora/base/HostText.h>
#include <vellora/host/ImageObj.h>
#include <vellora/host/NodeHandle.h>

namespace vellora {
namespace {

constexpr double kNever = 1e9;

/// Processor time: the ratios then hold on a busy machine too.
double secondsSince(std::clock_t start) {
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

constexpr char kTextSprite[] = R"(<Sprite_Data id="%1" type="text">
<text x0="40" y0="%2" font="DejaVu Sans" color="0xffffff" size="36" bold="1" italic="0" underline="0" align="0" shadow="1" s_color="0x000000" so_x="2" so_y="2">A walk along the river, $[F]
<text_effect font_name="DejaVu Sans" font_size="36" bold="true" italic="false" underline="false" shadow="true" border="false" halo="true" emboss="false">
<face style="gradient"><color color1="0xffcc00" color2="0x993300" angle="90" grad_pos_percent="40"/></face>
<shadow offset="3" angle="45" style="solid"><color color1="0x000000"/></shadow>
<halo size="4" blur="6" style="solid"><color color1="0xffffff"/></halo>
</text_effect></text></Sprite_Data>)";

constexpr char kClipSprite[] =
    "<Sprite_Data id=\"%1\" type=\"props\"><props x0=\"40\" y0=\"%2\" cx=\"120\" cy=\"90\">"
    "/home/somebody/clips/travel/compass rose.emf</props></Sprite_Data>";

constexpr char kEdits[] =
    "<Filter_Data id=\"0\" type=\"Brightness Contrast\" factor_one=\"20\" factor_two=\"-10\" "
    "crop_step=\"0\" FlipX=\"0\" FlipY=\"0\" Angle=\"0\"/>"
    "<Filter_Data id=\"1\" type=\"HSL\" factor_one=\"10\" factor_two=\"30\" factor_three=\"0\" "
    "crop_step=\"1\" FlipX=\"0\" FlipY=\"0\" Angle=\"90\"/>"
    "<Filter_Data id=\"2\" type=\"Red Eye Removal\" factor_one=\"50\" crop_step=\"1\" FlipX=\"0\" "
    "FlipY=\"0\" Angle=\"90\" roi_x=\"0.25\" roi_y=\"0.25\" roi_cx=\"0.1\" roi_cy=\"0.1\"/>"
    "<Crop_Data id=\"0\" x=\"10\" y=\"20\" cx=\"400\" cy=\"300\" flipx=\"0\" flipy=\"0\" "
    "angle=\"0\"/>";

/// A project with 4 texts, a clip, 3 filters and a crop for each photo.
QByteArray projectText(int photos) {
    QByteArray text = "<ZEV_Photo_Info version=\"1.00\"><Album_Data sprite_count=\"0\"/>";
    for (int i = 0; i < photos; ++i) {
        text += "<Image_Data id=\"" + QByteArray::number(i) +
                "\" sprite_count=\"5\" filter_count=\"3\" crop_count=\"1\">";
        for (int k = 0; k < 5; ++k) {
            text += QString::fromLatin1(k < 4 ? kTextSprite : kClipSprite)
                        .arg(k)
                        .arg(k * 80)
                        .toLatin1();
        }
        text += kEdits;
        text += "</Image_Data>";
    }
    return text + "</ZEV_Photo_Info>";
}

/// A document with so many photos.
class Document {
public:
    explicit Document(int photos) : m_records(static_cast<std::size_t>(photos)) {
        for (_PHOTO_LIST_NODE& record : m_records) {
            setHostText(record.path, QStringLiteral("/home/somebody/photos/2026/DSC_0001.jpg"));
            m_handles.push_back(nullptr);
            m_object.AddPhotoListNode(&record, &m_handles.back());
        }
    }
    ~Document() {
        for (_HNODE* handle : m_handles) {
            ReleaseNode(handle);
        }
    }
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    CImageObj& object() { return m_object; }

private:
    std::vector<_PHOTO_LIST_NODE> m_records;
    std::vector<_HNODE*> m_handles;
    CImageObj m_object;
};

/// A project file as the module writes it.
class ProjectFile {
public:
    explicit ProjectFile(int photos) {
        QFile file(path());
        if (!file.open(QIODevice::WriteOnly)) {
            return;
        }
        file.write(projectText(photos));
        file.close();
        Document document(photos);
        document.object().LoadFromXMLFile(path());
        document.object().SaveToXMLFile(path());
    }

    [[nodiscard]] QString path() const { return m_folder.filePath(QStringLiteral("show.xml")); }
    [[nodiscard]] QString copyPath() const { return m_folder.filePath(QStringLiteral("copy.xml")); }
    [[nodiscard]] double size() const { return static_cast<double>(QFile(path()).size()); }

private:
    QTemporaryDir m_folder;
};

/// The greatest size in bytes that the process had since `restart`; 0 where it cannot be told.
class PeakMemory {
public:
    static void restart() {
        malloc_trim(0);
        QFile file(QStringLiteral("/proc/self/clear_refs"));
        if (file.open(QIODevice::WriteOnly)) {
            file.write("5");
        }
    }
    static double bytes() {
        QFile file(QStringLiteral("/proc/self/status"));
        if (file.open(QIODevice::ReadOnly)) {
            for (const QByteArray& line : file.readAll().split('\n')) {
                if (line.startsWith("VmHWM:")) {
                    return line.mid(6).chopped(2).trimmed().toDouble() * 1024;
                }
            }
        }
        return 0;
    }
};

void loadProjectOf(benchmark::State& state) {
    const int photos = static_cast<int>(state.range(0));
    const ProjectFile file(photos);
    double parse = kNever;
    double load = kNever;
    double memory = 0;
    for (auto _ : state) {
        PeakMemory::restart();  // neither finds memory that the other has left
        auto start = std::clock();
        {
            pugi::xml_document plain;
            plain.load_file(QFile::encodeName(file.path()).constData());
            parse = std::min(parse, secondsSince(start));
        }
        Document document(photos);
        PeakMemory::restart();
        const double before = PeakMemory::bytes();
        start = std::clock();
        document.object().LoadFromXMLFile(file.path());
        const double seconds = secondsSince(start);
        memory = PeakMemory::bytes() - before;
        load = std::min(load, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["MB"] = file.size() / 1e6;
    state.counters["x_parse"] = load / parse;
    state.counters["memory_x_file"] = memory / file.size();
}
BENCHMARK(loadProjectOf)
    ->Arg(1000)
    ->Arg(10000)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void saveProjectOf(benchmark::State& state) {
    const int photos = static_cast<int>(state.range(0));
    const ProjectFile file(photos);
    Document document(photos);
    document.object().LoadFromXMLFile(file.path());
    pugi::xml_document plain;
    plain.load_file(QFile::encodeName(file.path()).constData());
    const QByteArray copy = QFile::encodeName(file.copyPath());
    double write = kNever;
    double save = kNever;
    double memory = 0;
    for (auto _ : state) {
        auto start = std::clock();
        plain.save_file(copy.constData(), "    ");
        write = std::min(write, secondsSince(start));
        PeakMemory::restart();
        const double before = PeakMemory::bytes();
        start = std::clock();
        document.object().SaveToXMLFile(file.path());
        const double seconds = secondsSince(start);
        memory = PeakMemory::bytes() - before;
        save = std::min(save, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["MB"] = file.size() / 1e6;
    state.counters["x_write"] = save / write;
    state.counters["memory_x_file"] = memory / file.size();
}
BENCHMARK(saveProjectOf)
    ->Arg(1000)
    ->Arg(10000)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vellora
