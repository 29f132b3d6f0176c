#include "platform/IniReader.h"

#include "fakes/Text.h"
#include "platform/TempTree.h"
#include "runtime/ExpectRaised.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

/// Everything read, one "section:line key=value:line …" after another.
QString Dump(const IniReader& ini) {
    QString text;
    for (const IniSection& section : ini.Sections()) {
        text += Text("%1:%2").arg(section.name).arg(section.line);
        for (const IniEntry& entry : section.entries)
            text += Text(" %1=%2:%3").arg(entry.key, entry.value).arg(entry.line);
        text += QLatin1Char(';');
    }
    return text;
}

TEST(IniReaderTest, NamesTheLineOfEachProblemAndReadsOn) {
    const IniReader ini("early=1\n[A]\nnonsense\n=v\nk=v\n[B\nl=w\n", Text("x.ini"));
    EXPECT_EQ(Dump(ini), Text("A:2 k=v:5;B:6 l=w:7;"));
    QStringList places;
    for (const QString& problem : ini.Problems())
        places += problem.section(u':', 0, 0);
    EXPECT_EQ(places, Texts({"x.ini, line 1", "x.ini, line 3", "x.ini, line 4", "x.ini, line 6"}));
}

TEST(IniReaderTest, ReadsHostileFilesInLittleTime) {
    QByteArray sections;
    for (int number = 0; sections.size() < IniReader::MaxBytes; ++number)
        sections += '[' + QByteArray::number(number) + "]\n";
    const IniReader ini(sections);
    for (const IniSection& section : ini.Sections())
        ASSERT_EQ(ini.Find(section.name), &section);
    EXPECT_EQ(
        IniReader(QByteArray(IniReader::MaxBytes / 2, 'x').replace("xx", "x\n")).Problems().size(),
        IniReader::MaxProblems);
}

TEST(IniReaderTest, RefusesFilesThatAreNone) {
    const TempTree tree;
    tree.File("small.ini", "[A]\nnonsense");
    tree.File("large.ini", QByteArray(IniReader::MaxBytes + 1, '\n'));
    const auto read = [&](const char* name) { return IniReader::FromFile(tree.Path(Text(name))); };
    EXPECT_EQ(Dump(read("small.ini")), Text("A:1;"));
    ExpectRaised(ErrorNumber::FileNotFound, [&] { return read("missing.ini"); });
    ExpectRaised(ErrorNumber::PathFileAccessError, [&] { return read("large.ini"); });
    ExpectRaised(ErrorNumber::PathFileAccessError, [&] { return read(""); });
}

} // namespace
} // namespace netrove
