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
/// Twips of the window's inner height that the tabs leave to what stands above and below them.
constexpr int AroundTabs = 1675;
/// Pixels of the narrow buttons beside the start node, and of the small picture.
constexpr int SmallButtonWidth = 32;
constexpr int PictureSize = 20;

/// Tab headers low enough that the caption line below the list has its place.
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

/// An opaque one: the count below the list is painted for each row that comes in, and would have
/// the tabs and the window painted below it each time.
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
    int width; ///< twips; 0 for a hidden one
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
    picListHolder = Named(new QWidget(&inner), Text("picListHolder"));
    SSTab1 = Named(new QTabWidget(picListHolder), Text("SSTab1"));
    auto* tabStyle = new LowTabStyle;
    tabStyle->setParent(SSTab1);
    SSTab1->tabBar()->setStyle(tabStyle);

    QWidget* results = TabPage();
    RetFileLbl = NamedLabel(*results, Text("RetFileLbl"), Text("---"));
    lvwResults = Named(new ListView(results), Text("lvwResults"));
    lvwResults->setAccessibleName(Text("Results"));
    AddColumns(*lvwResults, ResultColumns);
    SSTab1->addTab(results, Text("Results"));

    QWidget* downloads = TabPage();
    DownloadLbl = NamedLabel(*downloads, Text("DownloadLbl"), Text("---"));
    lvwDownloads = Named(new ListView(downloads), Text("lvwDownloads"));
    lvwDownloads->setAccessibleName(Text("Downloads"));
    AddColumns(*lvwDownloads, DownloadColumns);
    SSTab1->addTab(downloads, Text("Downloads"));
}

void MainControls::MakeHidden(QWidget& inner) {
    picIconLg = HiddenWidget(inner, Text("picIconLg"));
    picIconSm = HiddenWidget(inner, Text("picIconSm"));
}

void MainControls::MakeButtons(QWidget& inner) {
    cmdInpNetNode =
        NamedButton(inner, Text("cmdInpNetNode"), Text("<>"), "Input a network node manually");
    chkRecurse = Named(new QCheckBox(Text("&Recurse Folders:"), &inner), Text("chkRecurse"),
                       "Select this to search file system subfolders");
    chkRecurse->setLayoutDirection(Qt::RightToLeft);
    chkRecurse->setChecked(true);
    cmdClearLst = NamedButton(inner, Text("cmdClearLst"), Text("&Clear All"),
                              "Clear the grids and search parameter list");
    cmdStartSearch =
        NamedButton(inner, Text("cmdStartSearch"), Text("&Start Searching"), "Start the search");
    cmdAbandon = NamedButton(inner, Text("cmdAbandon"), Text("&Abort"), "Abort the search");
    cmdSetSearchStart = NamedButton(inner, Text("cmdSetSearchStart"), Text("&..."),
                                    "Browse for a node on the network");
}

void MainControls::MakeInputs(QWidget& inner) {
    txtSearchStart =
        Named(new QLineEdit(&inner), Text("txtSearchStart"), "Selected node for search");
    txtSearchStart->setReadOnly(true);
    txtSearchStart->setAccessibleName(Text("Search Within This Node:"));
    stbStatus = Named(new StatusBar(&inner), Text("stbStatus"));
    stbStatus->AddPanel(Text("Idle"), 1764);
    stbStatus->AddPanel(QString(), 16889);
    stbStatus->AddPanel(QString(), 529);
    stbStatus->resize(stbStatus->sizeHint());

    LstSearchFor =
        Named(new QComboBox(&inner), Text("LstSearchFor"), "The file parameters for search");
    LstSearchFor->setEditable(true);
    LstSearchFor->setInsertPolicy(QComboBox::NoInsert);
    LstSearchFor->setCompleter(nullptr);
    LstSearchFor->setEditText(Text("*.mp3"));
    LstSearchFor->setAccessibleName(Text("Search For:"));
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
    Label1 = NamedLabel(inner, Text("Label1"), Text("Search For:"));
    Label2 = NamedLabel(inner, Text("Label2"), Text("Search Within This Node:"));
    HyperLbl = NamedLabel(inner, Text("HyperLbl"), Text(""));
    HyperLbl->setText(webAddress);
    Label1->setBuddy(LstSearchFor);
    Label2->setBuddy(txtSearchStart);
    HyperLbl->setToolTip(Text("Click here to go to the official website"));
    QFont linkFont = HyperLbl->font();
    linkFont.setUnderline(true);
    HyperLbl->setFont(linkFont);
    HyperLbl->setCursor(Qt::PointingHandCursor);
}

void MainControls::MakeDecoration(QWidget& inner) {
    Line1 = Frame(inner, Text("Line1"), QFrame::HLine);
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
        caption->setAutoFillBackground(true); // and so keep the desktop's colours
    SetTag(*HyperLbl, "LINK");
}

/// Three groups side by side, of two rows each, and the link below the first. Their widths follow
/// the font; together they fill the width that the window is designed with.
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
