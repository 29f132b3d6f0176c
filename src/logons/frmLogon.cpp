#include "logons/frmLogon.h"

#include "runtime/Names.h"
#include "runtime/SourceText.h"
#include "skins/SkinControls.h"
#include "windowservices/WindowGeometry.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace netrove {
namespace {

/// Longer than any user or password that a server takes.
constexpr int MaxText = 200;
constexpr int FieldCharacters = 34;
/// In pixels, for frame and margins.
constexpr int FieldMargin = 16;

QLineEdit* MakeLine(const char* name, QWidget* parent) {
    auto* line = new QLineEdit(parent);
    line->setObjectName(Text(name));
    line->setMaxLength(MaxText);
    line->setProperty(TagProperty, u"NOCOLOR"_s);
    return line;
}

} // namespace

QString frmLogon::AllComputers() {
    return tr("All computers");
}

frmLogon::frmLogon(const StoredLogon* before, const Services& services, QWidget* owner)
    : ProgramDialog(u"frmLogon"_s, services.look, owner)
    , services_(services)
    , cboComputer_(new QComboBox(this))
    , txtUser_(MakeLine("txtUser", this))
    , txtPassword_(MakeLine("txtPassword", this))
    , chkRemember_(new QCheckBox(tr("&Remember in the keyring"), this))
    , cmdOk_(nullptr) {
    setWindowTitle(before ? tr("Change Logon") : tr("Add Logon"));
    MakeControls(services.hasKeyring);
    if (before) {
        ShowLogon(*before);
    } else if (!services.computer.isEmpty()) {
        cboComputer_->setEditText(services.computer);
        txtUser_->setFocus();
    }
    LoadSkin();
    resize(layout()->totalMinimumSize());
    FixSizeAroundContents(*this);
    Centre();
}

frmLogon::~frmLogon() {
    (void)TakePassword();
}

void frmLogon::MakeControls(bool hasKeyring) {
    cboComputer_->setObjectName(u"cboComputer"_s);
    cboComputer_->setEditable(true);
    cboComputer_->setInsertPolicy(QComboBox::NoInsert);
    cboComputer_->setCompleter(nullptr); // it would make "All computers" of "A"
    cboComputer_->addItem(AllComputers());
    cboComputer_->setCurrentIndex(-1);
    cboComputer_->lineEdit()->setPlaceholderText(tr("Name of the computer"));
    cboComputer_->lineEdit()->setMaxLength(MaxText);
    cboComputer_->setFocus();
    txtUser_->setPlaceholderText(tr("user, DOMAIN\\user or user@domain"));
    const QFontMetrics metrics = fontMetrics();
    txtUser_->setMinimumWidth(
        std::max(metrics.averageCharWidth() * FieldCharacters,
                 metrics.horizontalAdvance(txtUser_->placeholderText()) + FieldMargin));
    txtPassword_->setEchoMode(QLineEdit::Password);
    chkRemember_->setObjectName(u"chkRemember"_s);
    chkRemember_->setEnabled(hasKeyring);
    chkRemember_->setChecked(hasKeyring);

    auto* form = new QFormLayout;
    form->addRow(tr("&Computer:"), cboComputer_);
    form->addRow(tr("&User:"), txtUser_);
    form->addRow(tr("&Password:"), txtPassword_);
    form->addRow(QString(), chkRemember_);
    if (!hasKeyring) {
        auto* note =
            new QLabel(tr("There is no keyring here: the logon is kept until Netrove ends."), this);
        note->setObjectName(u"lblNoKeyring"_s);
        note->setWordWrap(true);
        form->addRow(QString(), note);
        chkRemember_->setAccessibleDescription(note->text());
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    cmdOk_ = buttons->button(QDialogButtonBox::Ok);
    cmdOk_->setObjectName(u"cmdOk"_s);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(u"cmdCancel"_s);
    connect(buttons, &QDialogButtonBox::accepted, this, &frmLogon::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &frmLogon::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addStretch();
    layout->addWidget(buttons);
}

void frmLogon::ShowLogon(const StoredLogon& before) {
    result_ = before;
    cboComputer_->setEditText(before.computer.isEmpty() ? AllComputers() : before.computer);
    cboComputer_->setEnabled(false);
    txtUser_->setText(before.user);
    txtPassword_->setPlaceholderText(tr("as it is"));
    chkRemember_->setChecked(chkRemember_->isEnabled() && before.isInKeyring);
    txtPassword_->setFocus();
}

/// The name as it was typed, without "\\"; empty for all computers.
QString frmLogon::Computer() const {
    QString name = cboComputer_->currentText().trimmed();
    while (name.startsWith(u'\\') || name.startsWith(u'/'))
        name.remove(0, 1);
    return IsSameName(name, AllComputers()) ? QString() : name;
}

void frmLogon::accept() {
    const QString computer = Computer();
    if (!IsNodeName(computer) && !IsSameName(cboComputer_->currentText(), AllComputers())) {
        Complain(tr("Type the name of a computer, or choose \"%1\".").arg(AllComputers()),
                 *cboComputer_);
        return;
    }
    result_.computer = computer;
    result_.user = txtUser_->text().trimmed();
    if (!NamesUser(result_)) {
        Complain(tr("Type a user: \"user\", \"DOMAIN\\user\" or \"user@domain\"."), *txtUser_);
        return;
    }
    if (txtPassword_->isModified() || result_.password.IsEmpty())
        result_.password = TakePassword();
    result_.isInKeyring = chkRemember_->isChecked();
    QDialog::accept();
}

void frmLogon::Complain(const QString& text, QWidget& where) {
    services_.dialogs.Message(MessageIcon::Exclamation, text, windowTitle());
    where.setFocus();
}

/// Overwrites the typed text in the field's memory.
Secret frmLogon::TakePassword() {
    QString typed = txtPassword_->text();
    QByteArray bytes = typed.toUtf8();
    const Secret password(bytes);
    Wipe(bytes);
    Wipe(typed);
    txtPassword_->clear();
    return password;
}

} // namespace netrove
