#include "mainwindow/MainControls.h"

#include "controls/NamedControls.h"
#include "controls/Twips.h"
#include "runtime/SourceText.h"
#include "skins/SkinControls.h"
#include "windowservices/PredefinedIcons.h"

#include <QProxyStyle>

#include <algorithm>

namespace netrove {
namespace {

/// Pixels between neighbouring controls, and between groups of them.
constexpr int Gap = 4;
constexpr int GroupGap = 12;
/// Width in twips that the window is designed with inside its frame.
constexpr int DesignWidth = 10920;
/// Twips of the window's inner height that the tabs leave to the controls above and below them.
constexpr int AroundTabs = 1675;
/// Pixels of the narrow buttons beside the start node, and of the small picture.
constexpr int SmallButtonWidth = 32;
constexpr int PictureSize = 20;

/// Keeps the tab headers low, so that there is room for the caption line below the list.
class LowTabStyle : public QProxyStyle {
public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        constexpr int HeaderMargin = 4;
        return metric == PM_TabBarTabVSpace ? HeaderMargin
                                            : QProxyStyle::pixelMetric(metric, option, widget);
    }
};

void SetTag(QWidget& control, const char* tag) {
    control.setProperty(TagProperty, Text(tag));
}

QWidget* HiddenWidget(QWidget& parent, const QString& name) {
    auto* widget = Named(new QWidget(&parent), name);
    widget->hide();
    return widget;
}

/// Opaque: the count below the list is repainted for each row that comes in, and would otherwise
/// have the tabs and the window behind it repainted each time.
QWidget* TabPage() {
    auto* page = new QWidget;
    page->setAutoFillBackground(true);
    return page;
}

QFrame* Frame(QWidget& parent, const QString& name, QFrame::Shape shape) {
    auto* frame = Named(new QFrame(&parent), name);
    frame->setFrameShape(shape);
    frame->setFrameShadow(QFrame::Plain);
    frame->setAttribute(Qt::WA_TransparentForMouseEvents);
    frame->lower();
    return frame;
}

struct Column {
    const char* header;
    Qt::Alignment alignment;
    int width; ///< twips; 0 for a hidden column
};

void AddColumns(ListView& list, std::span<const Column> columns) {
    for (const Column& column : columns) {
        const int number = list.AddColumn(Text(column.header), column.alignment, column.width);
        if (column.width == 0)
            list.HideColumn(number);
    }
}

constexpr Column ResultColumns[] = {
    {"File Name", Qt::AlignLeft, 2700},
    {"Source Location", Qt::AlignLeft, 2700},
    {"Size (MB)", Qt::AlignRight, 1200},
    {"Date", Qt::AlignRight, 1200},
    {"Attributes", Qt::AlignHCenter, 1140},
    {"Length", Qt::AlignRight, 1140},
    {"Bitrate", Qt::AlignRight, 1140},
    {"Frequency", Qt::AlignRight, 1140},
    {"Size2", Qt::AlignLeft, 0},
    {"Date2", Qt::AlignLeft, 0},
    {"File Type", Qt::AlignLeft, 1140},
    {"File Extension", Qt::AlignLeft, 1140},
};

constexpr Column DownloadColumns[] = {
    {"File Name", Qt::AlignLeft, 2700},
    {"Source Location", Qt::AlignLeft, 2700},
    {"Size (MB)", Qt::AlignRight, 1200},
    {"Date", Qt::AlignRight, 1200},
    {"Attributes", Qt::AlignHCenter, 1140},
    {"Status", Qt::AlignLeft, 1140},
    {"Size2", Qt::AlignLeft, 0},
    {"Date2", Qt::AlignLeft, 0},
    {"CopyID", Qt::AlignLeft, 0},
};

} // namespace

MainControls::MainControls(QWidget& inner, const QString& webAddress)
    : imgPreIconsLg(32), imgPreIconsSm(16), imgSysIconsSm(16), imgSysIconsLg(32) {
    MakeTabs(inner);
    MakeHidden(inner);
    MakeButtons(inner);
    MakeInputs(inner);
    MakeFilePictures(inner);
    MakeLabels(inner, webAddress);
    MakeDecoration(inner);
    TagForSkins();
    PlaceInputs();
    SetTabOrder();
    for (const QString& key : PredefinedIconKeys()) {
        imgPreIconsLg.Add(key, PredefinedIcon(key));
        imgPreIconsSm.Add(key, PredefinedIcon(key));
    }
    for (ImageList* list : {&imgSysIconsLg, &imgSysIconsSm})
        list->Add(PredefinedIconKeys().first(), BlankIcon());
}

IconSets MainControls::Icons() {
    return {.imgPreIconsLg = imgPreIconsLg,
            .imgPreIconsSm = imgPreIconsSm,
            .imgSysIconsLg = imgSysIconsLg,
            .imgSysIconsSm = imgSysIconsSm,
            .picIconLg = *picIconLg,
            .picIconSm = *picIconSm};
}

void MainControls::MakeTabs(QWidget& inner) {
    picListHolder = Named(new QWidget(&inner), u"picListHolder"_s);
    SSTab1 = Named(new QTabWidget(picListHolder), u"SSTab1"_s);
    auto* tabStyle = new LowTabStyle;
    tabStyle->setParent(SSTab1);
    SSTab1->tabBar()->setStyle(tabStyle);

    QWidget* results = TabPage();
    RetFileLbl = NamedLabel(*results, u"RetFileLbl"_s, u"---"_s);
    lvwResults = Named(new ListView(results), u"lvwResults"_s);
    lvwResults->setAccessibleName(u"Results"_s);
    AddColumns(*lvwResults, ResultColumns);
    SSTab1->addTab(results, u"Results"_s);

    QWidget* downloads = TabPage();
    DownloadLbl = NamedLabel(*downloads, u"DownloadLbl"_s, u"---"_s);
    lvwDownloads = Named(new ListView(downloads), u"lvwDownloads"_s);
    lvwDownloads->setAccessibleName(u"Downloads"_s);
    AddColumns(*lvwDownloads, DownloadColumns);
    SSTab1->addTab(downloads, u"Downloads"_s);
}

void MainControls::MakeHidden(QWidget& inner) {
    picIconLg = HiddenWidget(inner, u"picIconLg"_s);
    picIconSm = HiddenWidget(inner, u"picIconSm"_s);
}

void MainControls::MakeButtons(QWidget& inner) {
    cmdInpNetNode =
        NamedButton(inner, u"cmdInpNetNode"_s, u"<>"_s, "Input a network node manually");
    chkRecurse = Named(new QCheckBox(u"&Recurse Folders:"_s, &inner), u"chkRecurse"_s,
                       "Select this to search file system subfolders");
    chkRecurse->setLayoutDirection(Qt::RightToLeft);
    chkRecurse->setChecked(true);
    cmdClearLst = NamedButton(inner, u"cmdClearLst"_s, u"&Clear All"_s,
                              "Clear the grids and search parameter list");
    cmdStartSearch =
        NamedButton(inner, u"cmdStartSearch"_s, u"&Start Searching"_s, "Start the search");
    cmdAbandon = NamedButton(inner, u"cmdAbandon"_s, u"&Abort"_s, "Abort the search");
    cmdSetSearchStart =
        NamedButton(inner, u"cmdSetSearchStart"_s, u"&..."_s, "Browse for a node on the network");
}

void MainControls::MakeInputs(QWidget& inner) {
    txtSearchStart = Named(new QLineEdit(&inner), u"txtSearchStart"_s, "Selected node for search");
    txtSearchStart->setReadOnly(true);
    txtSearchStart->setAccessibleName(u"Search Within This Node:"_s);
    stbStatus = Named(new StatusBar(&inner), u"stbStatus"_s);
    stbStatus->AddPanel(u"Idle"_s, 1764);
    stbStatus->AddPanel(QString(), 16889);
    stbStatus->AddPanel(QString(), 529);
    stbStatus->resize(stbStatus->sizeHint());

    LstSearchFor =
        Named(new QComboBox(&inner), u"LstSearchFor"_s, "The file parameters for search");
    LstSearchFor->setEditable(true);
    LstSearchFor->setInsertPolicy(QComboBox::NoInsert);
    LstSearchFor->setCompleter(nullptr);
    LstSearchFor->setEditText(u"*.mp3"_s);
    LstSearchFor->setAccessibleName(u"Search For:"_s);
}

void MainControls::MakeFilePictures(QWidget& inner) {
    const qreal devicePixelRatio = inner.devicePixelRatioF();
    for (std::size_t index = 0; index < imgFiles.size(); ++index) {
        imgFiles[index] = Named(new QLabel(&inner), ElementName("imgFiles", index),
                                "Right-click for predefined search parameters");
        imgFiles[index]->setPixmap(
            FileKindsIcon(index == 0).pixmap(QSize(PictureSize, PictureSize), devicePixelRatio));
    }
    imgFiles[1]->hide();
}

void MainControls::MakeLabels(QWidget& inner, const QString& webAddress) {
    Label1 = NamedLabel(inner, u"Label1"_s, u"Search For:"_s);
    Label2 = NamedLabel(inner, u"Label2"_s, u"Search Within This Node:"_s);
    HyperLbl = NamedLabel(inner, u"HyperLbl"_s, u""_s);
    HyperLbl->setText(webAddress);
    Label1->setBuddy(LstSearchFor);
    Label2->setBuddy(txtSearchStart);
    HyperLbl->setToolTip(u"Click here to go to the official website"_s);
    QFont linkFont = HyperLbl->font();
    linkFont.setUnderline(true);
    HyperLbl->setFont(linkFont);
    HyperLbl->setCursor(Qt::PointingHandCursor);
}

void MainControls::MakeDecoration(QWidget& inner) {
    Line1 = Frame(inner, u"Line1"_s, QFrame::HLine);
    for (std::size_t index = 0; index < Lne.size(); ++index)
        Lne[index] =
            Frame(inner, ElementName("Lne", index), index >= 2 ? QFrame::HLine : QFrame::VLine);
    for (std::size_t index = 0; index < RecShp.size(); ++index)
        RecShp[index] = Frame(inner, ElementName("RecShp", index), QFrame::Box);
}

void MainControls::TagForSkins() const {
    for (QWidget* control :
         {static_cast<QWidget*>(RetFileLbl), static_cast<QWidget*>(DownloadLbl),
          static_cast<QWidget*>(txtSearchStart), static_cast<QWidget*>(LstSearchFor)})
        SetTag(*control, "NOCOLOR");
    for (QLabel* caption : {RetFileLbl, DownloadLbl})
        caption->setAutoFillBackground(true); // so that it keeps the desktop's colours
    SetTag(*HyperLbl, "LINK");
}

/// Three groups side by side, of two rows each, and the link below the first. Their widths follow
/// the font; together they fill the window's design width.
void MainControls::PlaceInputs() {
    const int rowHeight =
        std::max(LstSearchFor->sizeHint().height(), cmdStartSearch->sizeHint().height());
    const int row1 = Gap + 1;
    const int row2 = row1 + rowHeight + Gap;
    const int row3 = row2 + rowHeight + Gap;

    const int rightWidth =
        std::max(cmdStartSearch->sizeHint().width(), cmdClearLst->sizeHint().width());
    const int right = ToPixels(DesignWidth) - 2 * Gap - rightWidth;
    const int middleWidth =
        std::max(chkRecurse->sizeHint().width(), cmdAbandon->sizeHint().width());
    const int middle = right - GroupGap - middleWidth;
    const int left = 2 * Gap;
    const int leftWidth = middle - GroupGap - left;

    PlaceSearchText(QRect(left, row1, leftWidth, rowHeight));
    PlaceStartNode(QRect(left, row2, leftWidth, rowHeight));
    chkRecurse->setGeometry(middle, row1, middleWidth, rowHeight);
    cmdAbandon->setGeometry(middle, row2, middleWidth, rowHeight);
    cmdStartSearch->setGeometry(right, row1, rightWidth, rowHeight);
    cmdClearLst->setGeometry(right, row2, rightWidth, rowHeight);

    const int tabsTop = ToPixels(AroundTabs) - stbStatus->sizeHint().height() - Gap / 2;
    picListHolder->move(ToPixels(75), tabsTop);
    HyperLbl->setGeometry(left, row3, HyperLbl->sizeHint().width(), tabsTop - Gap - row3);
    PlaceTabs();
    PlaceDecoration(QRect(left, row1, middle - GroupGap - left, row3 - row1), middle, right,
                    tabsTop);
}

int MainControls::LabelsWidth() const {
    return std::max(Label1->sizeHint().width(), Label2->sizeHint().width()) + Gap;
}

void MainControls::PlaceSearchText(const QRect& row) {
    const int input = row.x() + LabelsWidth();
    const int picture = row.right() + 1 - PictureSize;
    Label1->setGeometry(row.x(), row.y(), LabelsWidth(), row.height());
    LstSearchFor->setGeometry(input, row.y(), picture - Gap - input, row.height());
    for (QLabel* image : imgFiles)
        image->setGeometry(picture, row.y() + (row.height() - PictureSize) / 2, PictureSize,
                           PictureSize);
}

void MainControls::PlaceStartNode(const QRect& row) {
    const int input = row.x() + LabelsWidth();
    const int byHand = row.right() + 1 - SmallButtonWidth;
    const int browse = byHand - Gap - SmallButtonWidth;
    Label2->setGeometry(row.x(), row.y(), LabelsWidth(), row.height());
    txtSearchStart->setGeometry(input, row.y(), browse - Gap - input, row.height());
    cmdSetSearchStart->setGeometry(browse, row.y(), SmallButtonWidth, row.height());
    cmdInpNetNode->setGeometry(byHand, row.y(), SmallButtonWidth, row.height());
}

void MainControls::PlaceTabs() {
    SSTab1->move(0, 0);
    for (QLabel* caption : {RetFileLbl, DownloadLbl})
        caption->setGeometry(Gap, 0, 0, caption->sizeHint().height());
    for (ListView* list : {lvwResults, lvwDownloads})
        list->move(Gap - 1, 0);
}

/// Lines between the groups, and a frame around what each group holds. `first` is the first group.
void MainControls::PlaceDecoration(const QRect& first, int middle, int right, int tabsTop) {
    Line1->setGeometry(0, 0, ToPixels(DesignWidth), 2);
    Lne[3]->setGeometry(0, tabsTop - Gap + 1, ToPixels(DesignWidth), 2);
    const int end = ToPixels(DesignWidth) - Gap;
    const int bottom = first.bottom() - 1;
    const int top = first.y() - 3;
    const int edges[] = {Gap, middle - GroupGap / 2 - 1, right - GroupGap / 2 - 1, end};
    QFrame* const undersides[] = {Lne[2], Lne[4], Lne[5]};
    for (std::size_t group = 0; group < 3; ++group) {
        const int width = edges[group + 1] - edges[group];
        RecShp[group]->setGeometry(edges[group], top, width, bottom - top + 1);
        undersides[group]->setGeometry(edges[group], bottom, width, 1);
    }
    RecShp[3]->setGeometry(QRect(QPoint(Gap, bottom), QPoint(end - 1, tabsTop - Gap - 1)));
    Lne[0]->setGeometry(edges[1], bottom, 1, RecShp[3]->height());
    Lne[1]->setGeometry(edges[2], bottom, 1, RecShp[3]->height());
}

void MainControls::SetTabOrder() const {
    const std::array<QWidget*, 10> order{
        LstSearchFor,  chkRecurse, cmdStartSearch, txtSearchStart, cmdSetSearchStart,
        cmdInpNetNode, cmdAbandon, cmdClearLst,    lvwResults,     lvwDownloads};
    for (std::size_t index = 1; index < order.size(); ++index)
        QWidget::setTabOrder(order[index - 1], order[index]);
}

} // namespace netrove
