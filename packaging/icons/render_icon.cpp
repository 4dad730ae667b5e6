// SPDX-License-Identifier: MIT
#include <QBuffer>
#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>
#include <QtEndian>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

QByteArray renderPng(QSvgRenderer& drawing, int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}

QByteArray bigEndian(qsizetype number) {
    QByteArray bytes(4, '\0');
    qToBigEndian(static_cast<quint32>(number), bytes.data());
    return bytes;
}

/// Apple's icon file: chunks of a type, their length and a PNG picture, behind a header alike.
QByteArray renderIcns(QSvgRenderer& drawing) {
    struct Entry {
        const char* type;
        int size;
    };

    // The "@2x" entries repeat the size that they are twice of.
    constexpr Entry entries[] = {{"icp4", 16},  {"icp5", 32},  {"ic11", 32},  {"ic12", 64},
                                 {"ic07", 128}, {"ic08", 256}, {"ic13", 256}, {"ic09", 512},
                                 {"ic14", 512}, {"ic10", 1024}};
    QByteArray body;
    for (const Entry& entry : entries) {
        const QByteArray png = renderPng(drawing, entry.size);
        body += QByteArray(entry.type) + bigEndian(png.size() + 8) + png;
    }
    return QByteArray("icns") + bigEndian(body.size() + 8) + body;
}

bool write(const QString& path, const QByteArray& content) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

} // namespace

/// usage: tarnwick_render_icon DRAWING.svg OUTPUT…, each named SIZE.png or NAME.icns
int main(int argc, char** argv) {
    if (argc < 3)
        return 2;
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
    if (!drawing.isValid())
        return 1;
    for (int i = 2; i < argc; ++i) {
        const QString path = QString::fromLocal8Bit(argv[i]);
        const QFileInfo name(path);
        const bool isIcns = name.suffix() == "icns"_L1;
        const int size = name.completeBaseName().toInt();
        if (!isIcns && size < 1)
            return 2;
        if (!write(path, isIcns ? renderIcns(drawing) : renderPng(drawing, size))) {
            std::fprintf(stderr, "cannot write %s\n", argv[i]);
            return 1;
        }
    }
    return 0;
}
