#include <QGuiApplication>
#include <QPainter>
#include <QTextStream>

#include <vellora/text/EffectCatalogue.h>

// Draws every style of a catalogue, half on a dark and half on a light ground, with its number.

namespace {

constexpr int kColumns = 5;
constexpr QSize kCell(210, 92);
constexpr int kGap = 6;
constexpr int kNumberHeight = 16;
const QColor kDark(40, 46, 58);
const QColor kLight(236, 233, 226);

void drawCell(QPainter& painter, const QString& baseFolder, const vellora::TextEffectEntry& entry) {
    const QRect ground(QPoint(0, 0), kCell);
    painter.fillRect(ground, kDark);
    painter.fillRect(ground.adjusted(kCell.width() / 2, 0, 0, 0), kLight);
    painter.drawImage(0, 0, vellora::PreviewTextEffect(baseFolder, entry.effect, kCell, "Summer"));
    painter.setPen(Qt::black);
    painter.drawText(QRect(0, kCell.height(), kCell.width(), kNumberHeight), Qt::AlignCenter,
                     entry.name);
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3) {
        QTextStream(stderr) << "usage: vellora-stylesheet BASE_FOLDER PICTURE\n";
        return 1;
    }
    const auto entries = vellora::LoadEffectCatalogue(arguments[1]);
    if (entries.empty()) {
        QTextStream(stderr) << arguments[1] << ": no text styles\n";
        return 1;
    }
    const int rows = (static_cast<int>(entries.size()) + kColumns - 1) / kColumns;
    const QSize step(kCell.width() + kGap, kCell.height() + kNumberHeight + kGap);
    QImage sheet(kColumns * step.width() + kGap, rows * step.height() + kGap, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(12);
    painter.setFont(font);
    for (int i = 0; i < static_cast<int>(entries.size()); ++i) {
        painter.save();
        painter.translate(kGap + i % kColumns * step.width(), kGap + i / kColumns * step.height());
        drawCell(painter, arguments[1], entries[static_cast<std::size_t>(i)]);
        painter.restore();
    }
    painter.end();
    return sheet.save(arguments[2]) ? 0 : 2;
}
