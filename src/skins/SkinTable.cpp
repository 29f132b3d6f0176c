#include "skins/SkinTable.h"

#include "controls/Color.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <optional>

namespace netrove {

namespace {

using Skin = SkinConfiguration;

constexpr int SkinCount = 5;

/// The values of a member under each skin: Trek, Serenity, J.I.L.L., Metropolis, Bullethead.
template <typename Member, typename Value = Member>
struct Row {
    Member Skin::*member;
    std::array<Value, SkinCount> values;
};

/// A number that the skin leaves open.
constexpr std::optional<qint32> Open = std::nullopt;

constexpr quint32 Rgb(quint32 red, quint32 green, quint32 blue) {
    return red | green << 8 | blue << 16;
}

constexpr quint32 Black = Rgb(0, 0, 0);
constexpr quint32 White = Rgb(255, 255, 255);
constexpr quint32 Blue = Rgb(0, 0, 255);

// clang-format off
constexpr std::array<SkinColors, SkinCount + 1> Roles{{
    // back               button              line             fore             link
    {ButtonFaceColor,     ButtonFaceColor,    Black,           Black,           Blue},
    {Black,               Rgb(255, 192, 128), Rgb(192, 64, 0), Rgb(255, 128, 0), Rgb(128, 128, 255)},
    {Rgb(123, 189, 214),  White,              Black,           Black,           Blue},
    {Rgb(33, 59, 122),    Rgb(159, 181, 230), Black,           Black,           White},
    {White,               White,              White,           White,           Blue},
    {White,               White,              Black,           Black,           Blue},
}};

constexpr std::array<const char*, SkinCount> Names{
    "Trek", "Serenity", "J.I.L.L. - Joy In Love and Life", "Metropolis", "Bullethead"};

constexpr Row<qint32, std::optional<qint32>> Numbers[] = {
    {&Skin::TitleMetric1, {  13,   19,  11,  14,   9}},
    {&Skin::TitleMetric2, {  14,   20,  14,  13,   8}},
    {&Skin::TitleMetric3, {  90,   90,  39,  68,  25}},
    {&Skin::TitleMetric4, { 142,  140,  96,  81,  30}},
    {&Skin::TitleMetric5, { 240,  240, 180, 143,  65}},
    {&Skin::TitleMetric6, { 372,  400, 250, 210, 101}},
    {&Skin::FrameFlag1,   {Open, Open,  -1,  -1,  -1}},
    {&Skin::FrameInset1,  {Open, Open,   8,   8,   8}},
    {&Skin::FrameInset2,  {Open, Open,   8,   8,   8}},
    {&Skin::FrameInset3,  {Open, Open,   2,   2,   2}},
    {&Skin::FrameInset4,  {Open, Open,   2,   2,   2}},
    {&Skin::FrameMetric1, {Open, Open,   3,   2,   3}},
    {&Skin::FrameFlag2,   {Open, Open,  -1,  -1,  -1}},
    {&Skin::FrameFlag3,   {Open, Open,  -1,  -1,  -1}},
    {&Skin::FrameMetric2, {Open, Open, -10,  -6, -14}},
    {&Skin::FrameMetric3, {Open, Open,   3,   6,   7}},
    {&Skin::FrameMetric4, {Open, Open,  17,  10,  18}},
    {&Skin::FrameMetric5, {Open, Open,  30, Open, Open}},
};

constexpr Row<QPixmap, int> Pictures[] = {
    {&Skin::TitlePicture, {2, 0, 4, 6, 8}},
    {&Skin::FramePicture, {3, 1, 5, 7, 9}},
};

constexpr Row<quint32> Colors[] = {
    {&Skin::TitleColor1, {Rgb(255, 0, 0),     White,              Blue,               Black,              Rgb(102, 102, 102)}},
    {&Skin::TitleColor2, {Rgb(204, 204, 204), Rgb(47, 122, 151),  Rgb(153, 153, 153), Rgb(204, 204, 204), Rgb(153, 153, 153)}},
    {&Skin::BarColor1,   {Rgb(204, 204, 204), Black,              Rgb(136, 178, 255), Rgb(0, 255, 255),   Black}},
    {&Skin::BarColor2,   {White,              White,              White,              White,              Rgb(102, 102, 51)}},
    {&Skin::BarColor3,   {Rgb(128, 128, 128), Rgb(47, 122, 151),  Rgb(136, 178, 255), Rgb(51, 51, 51),    Black}},
    {&Skin::BarColor4,   {Black,              Rgb(123, 189, 214), Rgb(33, 59, 122),   Black,              White}},
};
// clang-format on

/// The frame scales most pictures, and a bitmap has hard edges: so even a screen of normal density
/// gets a picture with pixels to spare.
constexpr qreal LowestRatio = 2;

} // namespace

const SkinColors& RoleColors(int skinIndex) {
    return Roles[skinIndex < 0 || skinIndex > SkinCount ? 0 : static_cast<size_t>(skinIndex)];
}

void ApplyBuiltIn(int skinIndex, const SkinPictures& pictures, SkinConfiguration& configuration) {
    if (skinIndex < 1 || skinIndex > SkinCount)
        return;
    const size_t column = static_cast<size_t>(skinIndex - 1);
    configuration.Name = QString::fromLatin1(Names[column]);
    for (const auto& row : Numbers) {
        if (const auto value = row.values[column])
            configuration.*row.member = *value;
    }
    const qreal ratio = std::max(LowestRatio, qGuiApp->devicePixelRatio());
    for (const auto& row : Pictures)
        configuration.*row.member = pictures.Picture(row.values[column], ratio);
    for (const auto& row : Colors)
        configuration.*row.member = row.values[column];
}

} // namespace netrove
