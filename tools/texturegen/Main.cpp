#include <QDir>
#include <QImage>
#include <QTextStream>

#include "texturegen/Textures.h"

// Writes the seamless textures that text styles are painted with.

namespace {

using namespace vellora::textures;

constexpr int kSide = 128;
constexpr int kSamples = 4;  // per pixel, across and down
constexpr int kColours = 64;

QRgb meanColour(const Texture& texture, int column, int row) {
    int red = 0;
    int green = 0;
    int blue = 0;
    for (int j = 0; j < kSamples; ++j) {
        for (int i = 0; i < kSamples; ++i) {
            const QRgb sample = texture.colourAt((column + (i + 0.5) / kSamples) / kSide,
                                                 (row + (j + 0.5) / kSamples) / kSide);
            red += qRed(sample);
            green += qGreen(sample);
            blue += qBlue(sample);
        }
    }
    constexpr int kCount = kSamples * kSamples;
    // Coarse steps keep the files small; nothing of them shows on a text.
    const auto step = [](int sum) {
        return std::min(255, (sum / kCount * kColours / 256) * (256 / kColours) + 2);
    };
    return qRgb(step(red), step(green), step(blue));
}

QImage painted(const Texture& texture) {
    QImage picture(kSide, kSide, QImage::Format_RGB888);
    for (int row = 0; row < kSide; ++row) {
        for (int column = 0; column < kSide; ++column) {
            picture.setPixel(column, row, meanColour(texture, column, row));
        }
    }
    return picture;
}

}  // namespace

int main(int argc, char** argv) {
    QTextStream err(stderr);
    if (argc != 2) {
        err << "usage: vellora-textures FOLDER\n";
        return 1;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    for (const Texture& texture : allTextures()) {
        const QString path = folder.filePath(QLatin1StringView(texture.name));
        if (!painted(texture).save(path)) {
            err << "cannot write " << path << '\n';
            return 2;
        }
    }
    return 0;
}
