#include "browser/ComputerChooser.h"

#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Yield.h"

#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

namespace netrove {
namespace {

/// The role for whether an item stands for a computer.
constexpr int IsComputerRole = Qt::UserRole;
/// Initial size of the tree, in average characters and in lines.
constexpr int TreeCharacters = 44;
constexpr int TreeLines = 14;

bool IsComputer(const QTreeWidgetItem* item) {
    return item && item->data(0, IsComputerRole).toBool();
}

/// Whether there can be computers below a node of this type.
bool HoldsComputers(ResourceType type) {
    return type == ResourceType::Network || type == ResourceType::Domain ||
           type == ResourceType::Group || type == ResourceType::Generic;
}

} // namespace

ComputerChooser::ComputerChooser(NetworkEnumeration& network, const QString& title, QWidget* parent)
    : QDialog(parent)
    , network_(network)
    , tvwComputers_(new QTreeWidget(this))
    , lblState_(new QLabel(tr("Searching for computers on the network..."), this)) {
    setObjectName(u"ComputerChooser"_s);
    setWindowTitle(title);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    cmdOk_ = buttons->button(QDialogButtonBox::Ok);
    cmdOk_->setObjectName(u"cmdOk"_s);
    cmdOk_->setEnabled(false);
    // While no computer is chosen, Enter does nothing.
    buttons->button(QDialogButtonBox::Cancel)->setAutoDefault(false);
    Arrange(*buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(tvwComputers_, &QTreeWidget::currentItemChanged, this,
            [this](const QTreeWidgetItem* item) { cmdOk_->setEnabled(IsComputer(item)); });
    connect(tvwComputers_, &QTreeWidget::itemDoubleClicked, this,
            [this](const QTreeWidgetItem* item) {
                if (IsComputer(item))
                    accept();
            });
}

std::optional<QString> ComputerChooser::Choose(NetworkEnumeration& network, const QString& title,
                                               QWidget* parent) {
    ComputerChooser chooser(network, title, parent);
    chooser.setWindowModality(Qt::ApplicationModal);
    if (chooser.exec() != QDialog::Accepted)
        return std::nullopt;
    return chooser.Computer();
}

void ComputerChooser::Arrange(QDialogButtonBox& buttons) {
    tvwComputers_->setObjectName(u"tvwComputers"_s);
    tvwComputers_->setAccessibleName(tr("Computers of the network"));
    tvwComputers_->setHeaderHidden(true);
    const QFontMetrics metrics = tvwComputers_->fontMetrics();
    tvwComputers_->setMinimumSize(metrics.averageCharWidth() * TreeCharacters,
                                  metrics.lineSpacing() * TreeLines);
    lblState_->setObjectName(u"lblState"_s);
    lblState_->setTextFormat(Qt::PlainText);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tvwComputers_, 1);
    layout->addWidget(lblState_);
    layout->addWidget(&buttons);
}

QString ComputerChooser::Computer() const {
    const QTreeWidgetItem* item = tvwComputers_->currentItem();
    return IsComputer(item) ? item->text(0) : QString();
}

void ComputerChooser::done(int result) {
    isDone_ = true;
    QDialog::done(result);
}

void ComputerChooser::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!std::exchange(isStarted_, true))
        QTimer::singleShot(0, this, [this] { ReadNetwork(); });
}

/// Runs inside the dialog's event loop and yields; if the dialog is closed at a yield, it returns
/// at its next test, and only then does exec() return.
void ComputerChooser::ReadNetwork() {
    QString state;
    try {
        NetResource root(network_);
        AddChildren(root, *tvwComputers_->invisibleRootItem());
        state = computers_ == 1 ? tr("1 computer found.")
                                : tr("%n computers found.", nullptr, computers_);
    } catch (...) {
        state = tr("The network couldn't be read: %1").arg(CurrentFailure().Description());
    }
    lblState_->setText(state);
}

void ComputerChooser::AddChildren(NetResource& node, QTreeWidgetItem& item) {
    const auto children = node.Children();
    for (const auto& child : *children) {
        Yield();
        if (isDone_)
            return;
        const ResourceType type = child->ResourceType();
        if (type == ResourceType::Server) {
            AddItem(*child, item, true);
            ++computers_;
        } else if (HoldsComputers(type)) {
            AddChildren(*child, AddItem(*child, item, false));
        }
    }
}

QTreeWidgetItem& ComputerChooser::AddItem(const NetResource& node, QTreeWidgetItem& parent,
                                          bool isComputer) {
    auto* item = new QTreeWidgetItem(&parent, {node.ShortName()});
    item->setData(0, IsComputerRole, isComputer);
    item->setIcon(
        0, style()->standardIcon(isComputer ? QStyle::SP_ComputerIcon : QStyle::SP_DriveNetIcon));
    parent.setExpanded(true);
    return *item;
}

} // namespace netrove
