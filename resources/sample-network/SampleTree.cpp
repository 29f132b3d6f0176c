#include "SampleTree.h"

#include "AudioFile.h"
#include "Pictures.h"
#include "Sounds.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <array>
#include <stdexcept>
#include <vector>

namespace netrove::sample {
namespace {

constexpr QLatin1String Mark("/sample-network.ini");

/// The forms that the songs have in turn, and how many seconds of them a small file can hold.
struct SongForm {
    AudioForm form;
    int seconds;
    bool tagged = false;
};

const std::vector<SongForm>& SongForms() {
    using enum MpegVersion;
    using enum FrameCount;
    static const std::vector<SongForm> forms = {
        {{.version = Mpeg1, .layer = 3, .kilobits = 128, .hertz = 44100}, 3, true},
        {{.version = Mpeg2, .layer = 3, .kilobits = 16, .hertz = 22050, .mono = true}, 21},
        {{.version = Mpeg1,
          .layer = 3,
          .kilobits = 160,
          .hertz = 44100,
          .variable = true,
          .count = Xing},
         4,
         true},
        {{.version = Mpeg2, .layer = 3, .kilobits = 24, .hertz = 24000, .count = Info}, 14},
        {{.version = Mpeg1,
          .layer = 3,
          .kilobits = 112,
          .hertz = 48000,
          .variable = true,
          .count = Vbri},
         3},
        {{.version = Mpeg25, .layer = 3, .kilobits = 8, .hertz = 8000, .mono = true}, 61, true},
        {{.version = Mpeg2,
          .layer = 3,
          .kilobits = 64,
          .hertz = 22050,
          .variable = true,
          .count = Xing},
         5},
        {{.version = Mpeg1,
          .layer = 3,
          .kilobits = 64,
          .hertz = 32000,
          .mono = true,
          .variable = true},
         5,
         true},
        {{.version = Mpeg1, .layer = 2, .kilobits = 96, .hertz = 48000, .mono = true}, 4},
        {{.version = Mpeg2, .layer = 2, .kilobits = 32, .hertz = 16000, .mono = true}, 9, true},
        {{.version = Mpeg1, .layer = 1, .kilobits = 64, .hertz = 32000, .mono = true}, 5},
        {{.version = Mpeg2, .layer = 1, .kilobits = 48, .hertz = 24000, .mono = true}, 6},
    };
    return forms;
}

/// Writes files and remembers how many there are: their numbers make them differ.
class TreeWriter {
public:
    explicit TreeWriter(QString folder) : folder_(std::move(folder)) {}

    void Folder(const QString& path) {
        if (!QDir(folder_).mkpath(path))
            Fail(path);
    }

    void File(const QString& path, const QByteArray& content) {
        Folder(QFileInfo(path).path());
        QFile file(folder_ + QLatin1Char('/') + path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            Fail(path);
        SetTime(file);
    }

    /// A file of that length which takes no room on the disk.
    void HollowFile(const QString& path, qint64 length) {
        Folder(QFileInfo(path).path());
        QFile file(folder_ + QLatin1Char('/') + path);
        if (!file.open(QIODevice::WriteOnly) || !file.resize(length))
            Fail(path);
        SetTime(file);
    }

    void ReadOnlyFile(const QString& path, const QByteArray& content) {
        File(path, content);
        QFile::setPermissions(folder_ + QLatin1Char('/') + path,
                              QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    }

    void Song(const QString& path, const QString& artist, const QString& album,
              const QByteArray& cover = {}) {
        const SongForm& song = SongForms().at(std::size_t(number_) % SongForms().size());
        const int seconds = song.seconds + number_ % 3;
        QByteArray content = AudioStream(song.form, FramesOf(song.form, seconds));
        if (song.tagged || !cover.isEmpty())
            content.prepend(TagBytes({.title = QFileInfo(path).completeBaseName(),
                                      .artist = artist,
                                      .album = album,
                                      .cover = cover}));
        File(path, content);
    }

    void Text(const QString& path, const QString& text) { File(path, text.toUtf8()); }

    void Letter(const QString& path, const QByteArray& text) {
        File(path, "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Times New Roman;}}\\f0\\fs24 " + text +
                       "\\par}\r\n");
    }

    void Picture(const QString& path) {
        File(path, TilePicture(6 + number_ % 5, 4 + number_ % 4, quint32(number_)));
    }

    void Sound(const QString& path) { File(path, ToneWave(220 + 20 * (number_ % 23), 400)); }

    [[nodiscard]] int Number() const { return number_; }

private:
    [[noreturn]] static void Fail(const QString& path) {
        throw std::runtime_error("can't make " + path.toStdString());
    }

    /// Spread over twenty years, so that a list can be sorted by date.
    void SetTime(QFile& file) {
        constexpr qint64 first = 915'148'800; // 1 January 1999
        constexpr qint64 step = 13 * 86'400 + 12'347;
        file.setFileTime(QDateTime::fromSecsSinceEpoch(first + step * (number_ * 37 % 560)),
                         QFileDevice::FileModificationTime);
        ++number_;
    }

    QString folder_;
    int number_ = 0;
};

constexpr std::array Adjectives = {"Quiet", "Paper", "Copper", "Rainy",  "Wandering", "Little",
                                   "Amber", "Windy", "Salty",  "Sleepy", "Crooked",   "Early"};
constexpr std::array Nouns = {"Morning", "Boats", "Kettle", "Garden", "Lighthouse", "Stairs",
                              "Meadow",  "Train", "Fox",    "Window", "Harbour"};

QString Title(int number) {
    return QString::fromLatin1(Adjectives.at(std::size_t(number) % Adjectives.size())) +
           QLatin1Char(' ') + QString::fromLatin1(Nouns.at(std::size_t(number) % Nouns.size()));
}

void MakeAlbum(TreeWriter& tree, const QString& above, const QString& artist, const QString& album,
               int songs) {
    const QString folder = above + QLatin1Char('/') + artist + QLatin1Char('/') + album;
    const QByteArray cover = TilePicture(150, 150, quint32(tree.Number()));
    QString playlist;
    for (int song = 1; song <= songs; ++song) {
        const QString name = QStringLiteral("%1 %2.mp3")
                                 .arg(song, 2, 10, QLatin1Char('0'))
                                 .arg(Title(tree.Number()));
        tree.Song(folder + QLatin1Char('/') + name, artist, album,
                  song == 1 ? cover : QByteArray());
        playlist += name + QLatin1String("\r\n");
    }
    tree.Picture(folder + QLatin1String("/Front.jpg"));
    tree.Text(folder + QLatin1String("/") + album + QLatin1String(".m3u"), playlist);
}

void MakeMusic(TreeWriter& tree) {
    const QString music = QStringLiteral("MEADOW/CLOVER/Music");
    MakeAlbum(tree, music, QStringLiteral("Marble & Moss"), QStringLiteral("Under the Stairs"), 9);
    MakeAlbum(tree, music, QStringLiteral("Marble & Moss"), QStringLiteral("Second Helping"), 8);
    MakeAlbum(tree, music, QStringLiteral("Copper Kettle Trio"), QStringLiteral("Slow Boil"), 10);
    MakeAlbum(tree, music, QStringLiteral("Tante Käthe"), QStringLiteral("Straßenfest"), 7);
    const QString loose = music + QLatin1String("/Loose ends/");
    const QStringList names = {
        QStringLiteral("[demo] Take 1, rough.mp3"),
        QStringLiteral("Track #3.mp3"),
        QStringLiteral("C.A.T. (live).MP3"),
        QStringLiteral("Café au lait.mp3"),    // one character for the é …
        QStringLiteral("Cafe\u0301 noir.mp3"), // … and two
        QStringLiteral("日本の歌.mp3"),
        QStringLiteral("🎷 Sax solo.mp3"),
        QStringLiteral("100% pure & simple; really!.mp3"),
        QStringLiteral("Ночной поезд.mp3"),
        QStringLiteral(".hidden song.mp3"),
    };
    for (const QString& name : names)
        tree.Song(loose + name, QStringLiteral("Various"), QStringLiteral("Loose ends"));
    tree.Text(loose + QStringLiteral("README"), QStringLiteral("Names that are hard to type.\r\n"));
}

void MakePictures(TreeWriter& tree) {
    for (const char* folder : {"Holiday 2009", "Holiday 2017", "The cat"}) {
        for (int number = 1; number <= 18; ++number)
            tree.Picture(QStringLiteral("MEADOW/CLOVER/Pictures/%1/IMG_%2.%3")
                             .arg(QString::fromLatin1(folder))
                             .arg(1000 + 7 * number)
                             .arg(number % 4 == 0 ? QStringLiteral("JPG") : QStringLiteral("jpg")));
    }
}

void MakeDocuments(TreeWriter& tree) {
    const QString documents = QStringLiteral("MEADOW/BARLEY/Documents/");
    for (int year = 2001; year <= 2012; ++year) {
        tree.Letter(documents + QStringLiteral("Letters/Letter to the landlord %1.doc").arg(year),
                    "Dear Sir, the window still rattles.");
        tree.Text(documents + QStringLiteral("Household/Budget %1.csv").arg(year),
                  QStringLiteral("month;sum\r\n1;%1\r\n2;%2\r\n").arg(year % 97).arg(year % 89));
    }
    for (int number = 0; number < 20; ++number)
        tree.Text(documents + QStringLiteral("Recipes/%1 soup.txt").arg(Title(number)),
                  QStringLiteral("Chop it all, boil it, wait. Serves %1.\r\n").arg(2 + number % 5));
    tree.ReadOnlyFile(documents + QStringLiteral("Contract (signed).doc"),
                      "{\\rtf1 Agreed.\\par}\r\n");
    tree.Text(documents + QStringLiteral(".draft.txt"), QStringLiteral("Not yet.\r\n"));
    tree.Text(documents + QStringLiteral("Temp/~notes.txt"), QStringLiteral("Scribbles.\r\n"));
    tree.Text(QStringLiteral("MEADOW/BARLEY/Private/Diary.txt"), QStringLiteral("Secret.\r\n"));
    tree.Song(QStringLiteral("MEADOW/BARLEY/Private/Birthday surprise.mp3"),
              QStringLiteral("Family"), QStringLiteral("Private"));
}

void MakeArchive(TreeWriter& tree) {
    const QString archive = QStringLiteral("MEADOW/HEDGEHOG/Archive");
    MakeAlbum(tree, archive, QStringLiteral("Old Lighthouse Choir"),
              QStringLiteral("Foghorn Suite"), 8);
    for (int year = 1999; year <= 2004; ++year) {
        for (int month = 1; month <= 6; ++month)
            tree.Text(archive +
                          QStringLiteral("/Minutes/%1/Meeting %2-%1.txt").arg(year).arg(month),
                      QStringLiteral("Nobody objected.\r\n"));
    }
    tree.Text(archive + QStringLiteral("/Windows/System/driver.log"), QStringLiteral("ok\r\n"));
    tree.Text(archive + QStringLiteral("/Windows/readme.txt"), QStringLiteral("Old machine.\r\n"));
}

void MakeHarbour(TreeWriter& tree) {
    const QString books = QStringLiteral("HARBOUR/LANTERN/Audiobooks/The Long Crossing/");
    for (int chapter = 1; chapter <= 14; ++chapter)
        tree.Song(books + QStringLiteral("Chapter %1.mp3").arg(chapter),
                  QStringLiteral("A. Ferryman"), QStringLiteral("The Long Crossing"));
    const QString sounds = QStringLiteral("HARBOUR/OYSTER/Sound Library/");
    for (int number = 0; number < 24; ++number)
        tree.Sound(sounds +
                   QStringLiteral("Tones/tone_%1.wav").arg(number, 3, 10, QLatin1Char('0')));
    MakeAlbum(tree, sounds + QStringLiteral("Bands"), QStringLiteral("The Paper Sailors"),
              QStringLiteral("Knots, vol. 2"), 9);
    tree.HollowFile(QStringLiteral("HARBOUR/LANTERN/Films/Harbour at dawn.avi"),
                    Q_INT64_C(3'221'225'472));
    tree.HollowFile(QStringLiteral("HARBOUR/LANTERN/Films/Harbour at dusk.avi"),
                    Q_INT64_C(734'003'200));
    tree.Text(QStringLiteral("HARBOUR/LANTERN/Films/List of films.txt"),
              QStringLiteral("Dawn\r\nDusk\r\n"));
    tree.Text(QStringLiteral("HARBOUR/PELICAN/Files/Fishing.txt"), QStringLiteral("Later.\r\n"));
    tree.Song(QStringLiteral("HARBOUR/PELICAN/Files/Sea shanty.mp3"), QStringLiteral("Crew"),
              QStringLiteral("Deck"));
}

void MakeHiddenShares(TreeWriter& tree) {
    tree.Text(QStringLiteral("MEADOW/CLOVER/C$/Windows/setup.log"), QStringLiteral("done\r\n"));
    tree.Text(QStringLiteral("MEADOW/CLOVER/C$/Temp/leftover.txt"), QStringLiteral("x\r\n"));
    tree.Song(QStringLiteral("MEADOW/CLOVER/C$/Startup chime.mp3"), QStringLiteral("CLOVER"),
              QStringLiteral("System"));
    tree.Folder(QStringLiteral("MEADOW/CLOVER/Laser"));
    tree.Folder(QStringLiteral("MEADOW/HEDGEHOG/Drop box"));
}

/// Nothing but a tree that was made here before is removed.
void Clear(const QString& folder) {
    QDir dir(folder);
    if (dir.exists() && !dir.isEmpty() && !QFile::exists(folder + Mark))
        throw std::runtime_error(folder.toStdString() + " is no sample network");
    dir.removeRecursively();
}

} // namespace

void MakeSampleTree(const QString& folder) {
    Clear(folder);
    TreeWriter tree(folder);
    tree.File(Mark.mid(1), {}); // first, so that a tree that was cut short can be cleared
    MakeMusic(tree);
    MakePictures(tree);
    MakeDocuments(tree);
    MakeArchive(tree);
    MakeHarbour(tree);
    MakeHiddenShares(tree);
}

} // namespace netrove::sample
