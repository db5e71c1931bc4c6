// Writes the application's icon in every size, laid out as desktops look for it:
// FOLDER/hicolor/SIZExSIZE/apps/morvane.png.

#include <QDir>
#include <QImage>
#include <QPainter>
#include <QTextStream>
#include <array>

#include "ui/art/app_logo.h"
#include "ui/art/pan.h"

namespace {

constexpr std::array sizes{16, 22, 24, 32, 48, 64, 128, 256, 512, 1024};
// Below this the logo's finer parts are less than a pixel.
constexpr int detailedFrom = 64;

QImage icon(int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.scale(size / morvane::artSide, size / morvane::artSide);
    morvane::paintAppLogo(painter, size >= detailedFrom);
    return image;
}

}  // namespace

int main(int count, char** arguments) {
    QTextStream complaints(stderr);
    if (count != 2) {
        complaints << "usage: morvane-make-icons FOLDER\n";
        return 2;
    }
    for (const int size : sizes) {
        const QDir folder(QStringLiteral("%1/hicolor/%2x%2/apps")
                              .arg(QString::fromLocal8Bit(arguments[1]))
                              .arg(size));
        const QString file = folder.filePath(QStringLiteral("morvane.png"));
        if (!folder.mkpath(QStringLiteral(".")) || !icon(size).save(file)) {
            complaints << file << ": could not be written\n";
            return 1;
        }
    }
    return 0;
}
