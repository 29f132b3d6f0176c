#include "about/frmAbout.h"

#include "about/VersionHistory.h"
#include "about/frmPic.h"
#include "controls/NamedControls.h"
#include "runtime/SourceText.h"
#include "skins/SkinControls.h"
#include "windowservices/PredefinedIcons.h"
#include "windowservices/WindowGeometry.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QVBoxLayout>

namespace netrove {
namespace {

/// Inner size in twips.
constexpr int Width = 5790;
constexpr int Height = 5220;
/// In pixels: around the controls and between them, and the sizes of the pictures.
constexpr int Margin = 6;
constexpr int Gap = 4;
constexpr int PictureSize = 48;

QLabel* Label(const QString& name, const QString& text, QWidget* parent) {
    QLabel* label = NamedLabel(*parent, name, text);
    label->setWordWrap(true);
    return label;
}

QLabel* Picture(const char* name, const QIcon& icon, QWidget* parent) {
    auto* label = Label(Text(name), QString(), parent);
    label->setPixmap(icon.pixmap(QSize(PictureSize, PictureSize), parent->devicePixelRatioF()));
    label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    label->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    return label;
}

/// A panel in the colours of a text box, whatever the window's colours are. Its contents inherit
/// them, so that they are readable under every skin.
QFrame* Panel(const QString& name, QWidget* parent) {
    auto* panel = new QFrame(parent);
    panel->setObjectName(name);
    panel->setFrameShape(QFrame::Box);
    panel->setFrameShadow(QFrame::Plain);
    panel->setAutoFillBackground(true);
    QPalette palette = panel->palette();
    palette.setColor(QPalette::Window, palette.color(QPalette::Base));
    palette.setColor(QPalette::WindowText, palette.color(QPalette::Text));
    panel->setPalette(palette);
    return panel;
}

/// Makes the skin leave the control as it is.
void KeepColours(QWidget& control) {
    control.setProperty(TagProperty, u"NOCOLOR"_s);
}

} // namespace

frmAbout::frmAbout(const AboutServices& services, QWidget& mainWindow)
    : ProgramDialog(u"frmAbout"_s, services.look, &mainWindow)
    , services_(services)
    , mainWindow_(mainWindow) {
    setWindowTitle(u"About Netrove"_s);
    MakeControls();
    MakeLinks();
    Arrange();
    Form_Load();
}

void frmAbout::MakeControls() {
    for (std::size_t index = 0; index < shpRect_.size(); ++index) {
        shpRect_[index] = Panel(ElementName("shpRect", index), this);
        KeepColours(*shpRect_[index]);
    }
    const std::array texts{
        u"A program designed to facilitate the searching of files on a LAN (Local Area "
        "Network)."_s,
        u"Netrove"_s,
        tr("Licence: GNU GPL, version 3 or later."),
        tr("Without any warranty."),
        tr("Built with Qt %1.").arg(Text(QT_VERSION_STR)),
    };
    for (std::size_t index = 0; index < texts.size(); ++index) {
        lblInfo_[index] = Label(ElementName("lblInfo", index), texts[index], shpRect_[0]);
        KeepColours(*lblInfo_[index]);
    }
    QFont title = lblInfo_[1]->font();
    title.setPointSizeF(title.pointSizeF() * 1.5);
    title.setBold(true);
    lblInfo_[1]->setFont(title);
    imgIcon_ = Picture("imgIcon", ProgramIcon(), shpRect_[0]);
    imgIcon_->installEventFilter(this);
    Image1_ = Picture("Image1", NetworkPicture(), shpRect_[0]);
    for (QLabel* picture : {imgIcon_, Image1_})
        KeepColours(*picture);
    lblVersion_ = Label(u"lblVersion"_s, u"Version: x.xx.x"_s, this);
    lblVersion_->setProperty(TagProperty, u"LINK"_s);
    lblDescription_ = Label(u"lblDescription"_s, tr("What has changed"), shpRect_[1]);
    KeepColours(*lblDescription_);
    txtStuff_ = new QPlainTextEdit(this);
    txtStuff_->setObjectName(u"txtStuff"_s);
    txtStuff_->setAccessibleName(lblDescription_->text());
    txtStuff_->setReadOnly(true);
    txtStuff_->setTabChangesFocus(true);
    txtStuff_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    cmdOk_ = new QPushButton(u"&OK"_s, this);
    cmdOk_->setObjectName(u"cmdOk"_s);
    cmdOk_->setDefault(true);
    cmdOk_->setFocus();
    connect(cmdOk_, &QPushButton::clicked, this, &frmAbout::close);
}

void frmAbout::MakeLinks() {
    const QString site = u"Visit the official website"_s;
    lblProduct_ = new LinkLabel(u"lblProduct"_s, u"Tarn Bridge Software"_s, site, this);
    lblURL_ = new LinkLabel(u"lblURL"_s, services_.webAddress, site, this);
    lblCopyright_ = new LinkLabel(u"lblCopyright"_s, tr("Written by the Netrove developers"),
                                  u"Send an email to the programmer(s)"_s, this);
    lblVersionUpdate_ = new LinkLabel(u"lblVersionUpdate"_s, u"Update Information"_s,
                                      u"Get updated information for the program"_s, this);
    for (LinkLabel* link : {lblProduct_, lblURL_})
        connect(link, &LinkLabel::MouseDown, this,
                [this, link](Qt::MouseButton button) { OpenSite(*link, button); });
    connect(lblCopyright_, &LinkLabel::MouseDown, this, [this] {
        lblCopyright_->SetUsed();
        services_.shell.OpenMailLink(services_.contactAddress);
    });
    connect(lblVersionUpdate_, &LinkLabel::Click, this, [this] {
        lblVersionUpdate_->SetUsed();
        if (services_.UpdateMnu)
            services_.UpdateMnu();
    });
}

void frmAbout::ArrangePanel() {
    auto* last = new QHBoxLayout;
    for (const std::size_t index : {3, 4})
        last->addWidget(lblInfo_[index]);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(Gap / 2);
    for (const std::size_t index : {1, 0, 2})
        texts->addWidget(lblInfo_[index]);
    texts->addLayout(last);
    texts->addStretch();
    auto* pictures = new QVBoxLayout;
    pictures->addWidget(imgIcon_);
    pictures->addWidget(Image1_, 1);
    auto* panel = new QHBoxLayout(shpRect_[0]);
    panel->setContentsMargins(Margin, Margin, Margin, Margin);
    panel->setSpacing(2 * Gap);
    panel->addLayout(pictures);
    panel->addLayout(texts, 1);
}

QLayout* frmAbout::ArrangeLinks() {
    auto* left = new QVBoxLayout;
    auto* right = new QVBoxLayout;
    for (QVBoxLayout* column : {left, right})
        column->setSpacing(Gap / 2);
    left->addWidget(lblVersion_);
    left->addWidget(lblVersionUpdate_);
    right->addWidget(lblProduct_);
    right->addWidget(lblURL_);
    right->addWidget(lblCopyright_);
    left->addStretch();
    auto* both = new QHBoxLayout;
    both->addLayout(left, 1);
    both->addLayout(right, 1);
    return both;
}

void frmAbout::Arrange() {
    ArrangePanel();
    auto* heading = new QHBoxLayout(shpRect_[1]);
    heading->setContentsMargins(Margin, Gap / 2, Margin, Gap / 2);
    heading->addWidget(lblDescription_);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(Margin, Margin, Margin, Margin);
    all->setSpacing(Gap);
    all->addWidget(shpRect_[0]);
    all->addLayout(ArrangeLinks());
    all->addWidget(shpRect_[1]);
    all->addWidget(txtStuff_, 1);
    all->addWidget(cmdOk_, 0, Qt::AlignRight);
    QWidget* before = cmdOk_;
    for (QWidget* next : {static_cast<QWidget*>(lblVersionUpdate_),
                          static_cast<QWidget*>(lblProduct_), static_cast<QWidget*>(lblURL_),
                          static_cast<QWidget*>(lblCopyright_), static_cast<QWidget*>(txtStuff_)}) {
        setTabOrder(before, next);
        before = next;
    }
}

void frmAbout::Form_Load() {
    SetFixedClientSize(*this, Width, Height);
    Centre();
    LoadSkin(QSize(Width, Height));
    txtStuff_->setPlainText(VersionHistory());
    lblVersion_->setText(u"Version: "_s + services_.version.Text());
}

void frmAbout::OpenSite(LinkLabel& link, Qt::MouseButton button) {
    if (button != Qt::LeftButton)
        return;
    link.SetUsed();
    services_.shell.ShellRun(services_.webAddress);
}

void frmAbout::imgIcon_MouseDown(const QMouseEvent& event) {
    if (event.button() == Qt::LeftButton && event.modifiers() == Qt::ControlModifier)
        frmPic(mainWindow_, this).exec();
}

bool frmAbout::eventFilter(QObject* watched, QEvent* event) {
    if (watched == imgIcon_ && event->type() == QEvent::MouseButtonPress)
        imgIcon_MouseDown(*static_cast<QMouseEvent*>(event));
    return QDialog::eventFilter(watched, event);
}

void frmAbout::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        update();
}

} // namespace netrove
