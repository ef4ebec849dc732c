// Renders one photo: photo-host PHOTO RESULT.jpg

#include <QFileInfo>
#include <QGuiApplication>
#include <cstdio>

#include <vellora/vellora.h>

using namespace vellora;

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: photo-host PHOTO RESULT.jpg\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");  // a host with windows leaves this out
    const QGuiApplication application(argc, argv);

    // The host owns the record of each photo and keeps it alive as long as its node.
    _PHOTO_LIST_NODE photo{};
    setHostText(photo.path, QFile::decodeName(argv[1]));
    photo.rotation = 90;  // clockwise

    CImageObj show;
    _HNODE* node = nullptr;
    if (show.AddPhotoListNode(&photo, &node) != S_OK) {
        return 1;
    }

    // Edits: a crop in pixels of the 600 x 450 stage, then a filter on what is left.
    CPhotoProcessor& edits = *node->data->image->GetProcessor();
    CropRecord crop{.x = 20, .y = 20, .width = 280, .height = 400, .angle = photo.rotation};
    edits.AddCropRecord(crop);
    COpencvFilterInterface* filter = CreateFilterByName(u"Brightness Contrast");
    *filter->GetFactorOne() = 20;
    filter->crop_step = edits.GetCropCount();
    filter->Angle = photo.rotation;
    edits.AddFilterToChain(filter);  // takes ownership

    // 100: the picture is exactly the photo fitted into the box.
    const QString result = QFile::decodeName(argv[2]);
    show.SaveNodeToFile(result, 0, 1200, 900, 90, 0, 100, makeColorRef(0, 0, 0));
    ReleaseNode(node);

    if (!QFileInfo::exists(result)) {
        std::fprintf(stderr, "%s: cannot be rendered\n", argv[1]);
        return 1;
    }
    std::printf("%s: %d x %d\n", argv[2], photo.output_width, photo.output_height);
    return 0;
}
