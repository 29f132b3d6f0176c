#include "windowservices/PredefinedIcons.h"

#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"

#include <QImageReader>
#include <QPixmap>

#include <initializer_list>

/// Names the resource file, so that the linker keeps it. Q_INIT_RESOURCE must stand outside any
/// namespace.
static void KeepPictures() {
    Q_INIT_RESOURCE(icons);
}

namespace netrove {

namespace {

/// A picture that was drawn on a grid of this many pixels, and the sizes that it is used for. A
/// size between two grids is scaled from the grid that divides it better.
struct Drawing {
    int grid;
    std::initializer_list<int> sizes;
};

/// The drawing ":/icons/NAME.svg" at this size in pixels.
QPixmap Picture(const QString& name, const QSize& size) {
    KeepPictures();
    QImageReader reader(u":/icons/%1.svg"_s.arg(name), "svg");
    reader.setScaledSize(size);
    return QPixmap::fromImageReader(&reader);
}

/// The icon from ":/icons/NAME-GRID.svg" of each drawing. Rendered in advance, so that lists
/// needn't render the drawing each time.
QIcon Render(const QString& name, std::initializer_list<Drawing> drawings) {
    QIcon icon;
    for (const Drawing& drawing : drawings) {
        for (const int size : drawing.sizes)
            icon.addPixmap(Picture(u"%1-%2"_s.arg(name).arg(drawing.grid), QSize(size, size)));
    }
    return icon;
}

QString FileOf(const QString& key) {
    return key == "<NONE>"_L1 ? u"file-none"_s : "file-"_L1 + key.toLower();
}

/// The keys of the network's pictures in their order, with the drawings that they show.
struct NetworkDrawing {
    const char* key;
    const char* name;
};
constexpr NetworkDrawing NetworkDrawings[] = {
    {"directory", "node-folder"}, {"root", "node-root"},
    {"group", "node-group"},      {"ndscontainer", "node-ndscontainer"},
    {"network", "node-network"},  {"server", "node-server"},
    {"tree", "node-tree"},        {"domain", "node-domain"},
    {"share", "node-share"},      {"adminshare", "node-adminshare"},
    {"printer", "node-printer"},  {"folder", "node-folder"},
    {"file", "file-none"},        {"shareadmin", "node-adminshare"},
};

} // namespace

QStringList PredefinedIconKeys() {
    return {u"<NONE>"_s, u"CAB"_s, u"GIF"_s, u"TXT"_s, u"ZIP"_s,
            u"CSV"_s,    u"MP3"_s, u"EXE"_s, u"AVI"_s, u"RBY"_s};
}

QIcon PredefinedIcon(const QString& key) {
    if (!PredefinedIconKeys().contains(key))
        throw RunTimeError(ErrorNumber::KeyNotFound);
    return Render(FileOf(key), {{16, {16, 24}}, {32, {32, 48, 64, 96}}});
}

QIcon BlankIcon() {
    QIcon icon;
    for (const int size : {16, 32, 64}) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        icon.addPixmap(picture);
    }
    return icon;
}

QStringList NetworkIconKeys() {
    QStringList keys;
    for (const NetworkDrawing& drawing : NetworkDrawings)
        keys.append(QString::fromLatin1(drawing.key));
    return keys;
}

QIcon NetworkIcon(const QString& key) {
    for (const NetworkDrawing& drawing : NetworkDrawings) {
        if (key == QLatin1String(drawing.key))
            return Render(QString::fromLatin1(drawing.name), {{16, {16, 24}}, {32, {32, 48}}});
    }
    throw RunTimeError(ErrorNumber::KeyNotFound);
}

QIcon NetworkPicture() {
    return Render(u"network"_s, {{64, {64, 96, 128}}});
}

QIcon ProgramIcon() {
    return Render(u"netrove"_s, {{16, {16, 24}}, {64, {32, 48, 64, 128, 256}}});
}

QPixmap DudesPicture(qreal devicePixelRatio) {
    constexpr QSize Size(360, 240);
    QPixmap picture = Picture(u"dudes"_s, Size * devicePixelRatio);
    picture.setDevicePixelRatio(devicePixelRatio);
    return picture;
}

QIcon FileKindsIcon(bool active) {
    return Render(active ? u"kinds"_s : u"kinds-greyed"_s, {{20, {20, 30, 40, 60}}});
}

} // namespace netrove
