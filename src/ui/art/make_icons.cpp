// Writes the application's icon in every size: FOLDER/hicolor/SIZExSIZE/apps/morvane.png as
// desktops look for it, and FOLDER/morvane.icns with all of a Mac's sizes in one file.

#include <QBuffer>
#include <QDataStream>
#include <QDir>
#include <QFile>
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

// A Mac's icon file: "icns" and the file's length, then for each picture its kind, its length with
// these eight bytes, and a PNG; all numbers big-endian.
struct MacKind {
    const char* name;
    int pixels;
};
constexpr std::array macKinds{MacKind{"icp4", 16},  MacKind{"icp5", 32},  MacKind{"ic07", 128},
                              MacKind{"ic08", 256}, MacKind{"ic09", 512}, MacKind{"ic10", 1024},
                              MacKind{"ic11", 32},  MacKind{"ic12", 64},  MacKind{"ic13", 256},
                              MacKind{"ic14", 512}};

QByteArray chunk(const QByteArray& kind, const QByteArray& content) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.writeRawData(kind.constData(), 4);
    stream << static_cast<quint32>(content.size() + 8);
    return bytes + content;
}

QByteArray macIcon() {
    QByteArray pictures;
    for (const MacKind& kind : macKinds) {
        QBuffer png;
        if (!png.open(QIODevice::WriteOnly) || !icon(kind.pixels).save(&png, "PNG")) return {};
        pictures += chunk(kind.name, png.data());
    }
    return chunk("icns", pictures);
}

bool write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return !bytes.isEmpty() && file.open(QIODevice::WriteOnly) &&
           file.write(bytes) == bytes.size() && file.flush();
}

}  // namespace

int main(int count, char** arguments) {
    QTextStream complaints(stderr);
    if (count != 2) {
        complaints << "usage: morvane-make-icons FOLDER\n";
        return 2;
    }
    const QString into = QString::fromLocal8Bit(arguments[1]);
    for (const int size : sizes) {
        const QDir folder(QStringLiteral("%1/hicolor/%2x%2/apps").arg(into).arg(size));
        const QString file = folder.filePath(QStringLiteral("morvane.png"));
        if (!folder.mkpath(QStringLiteral(".")) || !icon(size).save(file)) {
            complaints << file << ": could not be written\n";
            return 1;
        }
    }
    const QString file = into + QStringLiteral("/morvane.icns");
    if (!write(file, macIcon())) {
        complaints << file << ": could not be written\n";
        return 1;
    }
    return 0;
}
