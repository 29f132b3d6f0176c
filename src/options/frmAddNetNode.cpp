#include "options/frmAddNetNode.h"

#include "options/OptionPage.h"
#include "options/modBrowse.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "services/Paths.h"
#include "skins/SkinControls.h"
#include "windowservices/WindowGeometry.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace netrove {
namespace {

/// The client size, in twips.
constexpr QSize ClientSize(5025, 2985);
/// The edge of the pictures beside the types, in pixels.
constexpr int TypePicture = 16;

constexpr auto ErrorTitle = "Network node error...";

/// The indices in types_ and NodeTypes.
enum Type : std::size_t { FolderType, WorkstationType, WorkgroupType, NetworkType };

struct TypeOption {
    const char* name;
    const char* caption;
};
constexpr std::array<TypeOption, NodeTypes.size()> TypeOptions{{{"optFolder", "&Folder"},
                                                                {"optWorkstation", "Work&station"},
                                                                {"optWorkgroup", "&Workgroup"},
                                                                {"optNetwork", "&Network"}}};

QGroupBox* MakeFrame(QWidget& parent, const char* name, const char* caption) {
    auto* frame = Named(new QGroupBox(Text(caption), &parent), Text(name));
    frame->setProperty(TagProperty, u"FORE"_s);
    return frame;
}

} // namespace

frmAddNetNode::frmAddNetNode(Dialogs& dialogs, const DialogLook& look, const QWidget* owner,
                             QWidget* parent)
    : ProgramDialog(u"frmAddNetNode"_s, look, parent), dialogs_(dialogs) {
    setWindowTitle(u"Add a Network Node"_s);
    MakeControls();
    connect(cmdBrNetNode_, &QPushButton::clicked, this, [this] { cmdBrNetNode_Click(); });
    for (const QRadioButton* type : types_)
        connect(type, &QRadioButton::toggled, this, [this] { TypeChosen(); });
    types_[FolderType]->setChecked(true);
    txtNetNodeName_->setFocus();
    txtNetNodeName_->installEventFilter(this);
    Form_Load(owner);
}

void frmAddNetNode::MakeControls() {
    auto* buttons = new QHBoxLayout;
    auto* cmdOK = NamedButton(*this, u"cmdOK"_s, u"&OK"_s);
    auto* cmdCancel = NamedButton(*this, u"cmdCancel"_s, u"&Cancel"_s);
    connect(cmdOK, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
    connect(cmdCancel, &QPushButton::clicked, this, [this] { reject(); });
    cmdOK->setDefault(true);
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* all = new QVBoxLayout(this);
    all->addWidget(MakeNameFrame());
    all->addWidget(MakeTypeFrame());
    all->addStretch();
    all->addLayout(buttons);
    setTabOrder(types_[NetworkType], cmdOK);
    setTabOrder(cmdOK, cmdCancel);
}

QWidget* frmAddNetNode::MakeNameFrame() {
    QGroupBox* frame = MakeFrame(*this, "Frame1", "Network Node Name");
    txtNetNodeName_ = MakeLine(*frame, "txtNetNodeName", "Enter the name of a network node");
    txtNetNodeName_->setProperty(TagProperty, u"NOCOLOR"_s);
    txtNetNodeName_->setAccessibleName(frame->title());
    cmdBrNetNode_ = MakeBrowseButton(*frame, "cmdBrNetNode", "Browse for the network node");
    Label1_ = Named(new QLabel(frame), u"Label1"_s);
    auto* grid = new QGridLayout(frame);
    grid->addWidget(txtNetNodeName_, 0, 0);
    grid->addWidget(cmdBrNetNode_, 0, 1);
    grid->addWidget(Label1_, 1, 0, 1, 2);
    return frame;
}

QWidget* frmAddNetNode::MakeTypeFrame() {
    QGroupBox* frame = MakeFrame(*this, "Frame2", "Network Node Type");
    auto* grid = new QGridLayout(frame);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    for (std::size_t type = 0; type < types_.size(); ++type) {
        auto* picture = Named(new QLabel(frame), u"imgNodes(" + QString::number(type) + u')');
        picture->setPixmap(
            NodeTypeIcon(type).pixmap(QSize(TypePicture, TypePicture), devicePixelRatioF()));
        types_.at(type) =
            MakeOption(*frame, TypeOptions.at(type).name, TypeOptions.at(type).caption);
        const int row = static_cast<int>(type % 2);
        const int column = type < 2 ? 0 : 2;
        grid->addWidget(picture, row, column);
        grid->addWidget(types_.at(type), row, column + 1);
    }
    return frame;
}

void frmAddNetNode::Form_Load(const QWidget* owner) {
    SetClientSize(*this, ClientSize.width(), ClientSize.height());
    LoadSkin(ClientSize);
    FixSizeAroundContents(*this);
    if (owner)
        Centre(*owner);
}

/// Only folders and computers can be browsed for.
void frmAddNetNode::TypeChosen() {
    const bool browsable = types_[FolderType]->isChecked() || types_[WorkstationType]->isChecked();
    cmdBrNetNode_->setEnabled(browsable);
    Label1_->setText(
        Text(browsable ? "Input manually -OR- browse for the network node." : "Input manually."));
}

void frmAddNetNode::cmdBrNetNode_Click() {
    dialogs_.Trap(u"Browse Error..."_s, [this] {
        QString answer;
        if (types_[FolderType]->isChecked())
            answer = BrowseForFolder(u"Select a folder"_s, false, dialogs_);
        else if (types_[WorkstationType]->isChecked())
            answer = BrowseForComputer(u"Select a workstation"_s, dialogs_);
        if (!Trim(answer).isEmpty())
            txtNetNodeName_->setText(ParseFolder(answer));
    });
}

QString frmAddNetNode::ParseFolder(const QString& fullPath) {
    qsizetype last = fullPath.lastIndexOf(u'/');
    if (last < 0)
        last = fullPath.lastIndexOf(u'\\');
    return fullPath.mid(last + 1);
}

void frmAddNetNode::cmdOK_Click() {
    dialogs_.Trap(Text(ErrorTitle), [this] {
        const QString name = Trim(txtNetNodeName_->text());
        if (name.isEmpty()) {
            Complain("Empty network node!");
            return;
        }
        if (HasIllegalNameChars(name)) {
            Complain("Network node has an illegal character!");
            return;
        }
        const auto* const type = std::find_if(types_.begin(), types_.end(),
                                              [](auto* option) { return option->isChecked(); });
        if (type == types_.end())
            Complain("Unknown network node type.");
        else
            NewNetNode_ =
                name + u'|' + NodeTypes.at(static_cast<std::size_t>(type - types_.begin()));
        accept();
    });
}

void frmAddNetNode::Complain(const char* text) {
    dialogs_.Message(MessageIcon::Critical, Text(text), Text(ErrorTitle));
    txtNetNodeName_->setFocus();
}

void frmAddNetNode::reject() {
    NewNetNode_.clear();
    QDialog::reject();
}

/// Selects the name when it gets the focus, even from the mouse, whose press moves the cursor right
/// afterwards.
bool frmAddNetNode::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtNetNodeName_ && event->type() == QEvent::FocusIn &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason)
        QMetaObject::invokeMethod(txtNetNodeName_, &QLineEdit::selectAll, Qt::QueuedConnection);
    return QDialog::eventFilter(watched, event);
}

} // namespace netrove
