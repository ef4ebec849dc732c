#include "UiBenches.h"

namespace vellora {

QImage benchScenery(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            row[x] = qRgb((x * 3 + y) / 7 % 256, (x ^ y) % 256, (y * 5 + x) / 9 % 256);
        }
    }
    return image;
}

}  // namespace vellora
