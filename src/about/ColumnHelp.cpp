#include "about/ColumnHelp.h"

#include "windowservices/WindowGeometry.h"

#include <algorithm>
#include <iterator>

namespace netrove {
namespace {

constexpr int AnyList = 0;

struct ColumnText {
    int column;
    int list;
    qint16 key;
    const char* text;
};

constexpr ColumnText ColumnTexts[] = {
    {0, AnyList, 0, "The name of the file, including the extension."},
    {1, AnyList, 1, "The source of the file on the network."},
    {2, AnyList, 2, "The size of the file in MegaBytes, KiloBytes, or Bytes."},
    {3, AnyList, 3, "The date/time when a file was created or last modified."},
    {4, AnyList, 4,
     "The attributes of this file:\r\n"
     "    R=Read Only\r\n"
     "    H=Hidden\r\n"
     "    S=System\r\n"
     "    A=Archive"},
    {5, ColumnHelp::lvwResults, 5,
     "If the file is an MP3 file then the length of the file is shown in HH:MM:SS."},
    {5, ColumnHelp::lvwDownloads, 8,
     "The status of the file:\r\n"
     " Pending=Waiting to be downloaded\r\n"
     " Downloading=Currently being downloaded\r\n"
     " Error (#)=Error in downloading\r\n"
     " No O/W=Existing file will not be over-written\r\n"
     " Done!=Download was successful"},
    {6, AnyList, 6,
     "If the file is an MP3 file then the bitrate of the file is shown in kbps (kilobits/sec)."},
    {7, AnyList, 7, "If the file is an MP3 file then the frequency of the file is shown in Hz."},
    {10, AnyList, 10, "The file type as defined by the operating system."},
    {11, AnyList, 11, "The file extension."},
};
constexpr ColumnText NoText{-1, AnyList, -1, "No help available for this column."};

} // namespace

void ColumnHelp::HeaderRightClick(int LV, int colNum, const QPoint& globalPosition) {
    help_.ColHelpX = static_cast<float>(PixelsToTwipsX(globalPosition.x()));
    help_.ColHelpY = static_cast<float>(PixelsToTwipsY(globalPosition.y()));
    ColHelp(LV, colNum, globalPosition);
}

void ColumnHelp::ColHelp(int LV, int colNum, const QPoint& globalPosition) {
    const auto* const found =
        std::find_if(std::begin(ColumnTexts), std::end(ColumnTexts), [&](const ColumnText& text) {
            return text.column == colNum && (text.list == AnyList || text.list == LV);
        });
    const ColumnText& text = found == std::end(ColumnTexts) ? NoText : *found;
    help_.ColHelpText = QString::fromLatin1(text.text);
    help_.ColHelpKey = text.key;
    PopUp3Mnu_.popup(globalPosition);
}

void ColumnHelp::HelpColMnu_Click() {
    (new frmColHelp(help_, &window_))->show();
}

} // namespace netrove
