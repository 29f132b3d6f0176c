#include "desktop/DesktopDialogs.h"

#include "runtime/SourceText.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFontDatabase>
#include <QFontDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace netrove {

namespace {

QMessageBox::Icon BoxIcon(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::None:
        return QMessageBox::NoIcon;
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::Information:
        return QMessageBox::Information;
    }
    Q_UNREACHABLE();
}

struct BoxButtons {
    QMessageBox::StandardButtons all;
    QMessageBox::StandardButton byEnter;
    QMessageBox::StandardButton byEscape;
};

BoxButtons ButtonsOf(MessageButtons buttons) {
    switch (buttons) {
    case MessageButtons::Ok:
        return {QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok};
    case MessageButtons::OkCancel:
        return {QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok, QMessageBox::Cancel};
    case MessageButtons::YesNo:
        return {QMessageBox::Yes | QMessageBox::No, QMessageBox::No, QMessageBox::No};
    }
    Q_UNREACHABLE();
}

/// Pixels that a window manager needs for a title, with the icon and buttons on both sides of it.
int TitleWidth(const QString& title) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::TitleFont);
    font.setBold(true);
    const QFontMetrics metrics(font);
    return metrics.horizontalAdvance(title) + 8 * metrics.height();
}

/// Makes a box as wide as its title and its longest line, as far as the screen allows. By itself it
/// breaks lines that are wider than 500 pixels.
void Widen(QMessageBox& box) {
    auto* label = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
    if (!label)
        return;
    // The most that a message box can have, less its icon and margins.
    const int screen = box.screen()->availableGeometry().width();
    const int most = (screen <= 1024 ? screen : std::min(screen - 480, 1000)) - 150;
    label->setWordWrap(false);
    const int width = std::max(TitleWidth(box.windowTitle()), label->sizeHint().width());
    label->setMinimumWidth(std::min(width, most));
}

MessageAnswer AnswerOf(QMessageBox::StandardButton pressed) {
    if (pressed == QMessageBox::Yes)
        return MessageAnswer::Yes;
    if (pressed == QMessageBox::No)
        return MessageAnswer::No;
    return pressed == QMessageBox::Cancel ? MessageAnswer::Cancel : MessageAnswer::Ok;
}

/// "Text (*.txt)|*.txt" as the chooser takes it: the pattern, which the chooser hides, in brackets
/// after the description.
QStringList NameFilters(const QString& filter) {
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype at = 0; at + 1 < parts.size(); at += 2) {
        const QString pattern = parts[at + 1] == u"*.*" ? u"*"_s : parts[at + 1];
        filters.append(parts[at] + u" (" + pattern + u')');
    }
    return filters;
}

/// The ending that the first pattern of a filter asks for: a name typed without one gets it.
QString FirstSuffix(const QString& filter) {
    return filter.section(u'|', 1, 1).section("*."_L1, 1, 1);
}

std::optional<QString> ChooseFile(QFileDialog& chooser, const FileDialogSetup& setup) {
    chooser.setWindowModality(Qt::ApplicationModal);
    chooser.setOption(QFileDialog::HideNameFilterDetails);
    chooser.setNameFilters(NameFilters(setup.filter));
    if (!setup.fileName.isEmpty())
        chooser.selectFile(setup.fileName);
    if (chooser.exec() != QDialog::Accepted || chooser.selectedFiles().isEmpty())
        return std::nullopt;
    return QDir::toNativeSeparators(chooser.selectedFiles().constFirst());
}

} // namespace

QWidget* DesktopDialogs::Parent() const {
    QWidget* dialog = QApplication::activeModalWidget();
    return dialog ? dialog : parent_.data();
}

MessageAnswer DesktopDialogs::Message(MessageIcon icon, const QString& text, const QString& title,
                                      MessageButtons buttons) {
    QMessageBox box(Parent());
    box.setIcon(BoxIcon(icon));
    box.setTextFormat(Qt::PlainText);
    box.setText(QString(text).replace("\r\n"_L1, "\n"_L1));
    box.setWindowTitle(title);
    box.setWindowModality(Qt::ApplicationModal);

    const BoxButtons offered = ButtonsOf(buttons);
    box.setStandardButtons(offered.all);
    box.setDefaultButton(offered.byEnter);
    box.setEscapeButton(offered.byEscape);
    Widen(box);
    return AnswerOf(QMessageBox::StandardButton(box.exec()));
}

QString DesktopDialogs::InputBox(const QString& prompt, const QString& title) {
    QInputDialog box(Parent());
    box.setWindowTitle(title);
    box.setWindowModality(Qt::ApplicationModal);
    box.setLabelText(prompt);
    for (QLabel* label : box.findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText);
    return box.exec() == QDialog::Accepted ? box.textValue() : QString();
}

std::optional<QString> DesktopDialogs::OpenFile(const FileDialogSetup& setup) {
    QFileDialog chooser(Parent(), setup.title, setup.folder);
    chooser.setFileMode(QFileDialog::ExistingFile);
    return ChooseFile(chooser, setup);
}

std::optional<QString> DesktopDialogs::SaveFile(const FileDialogSetup& setup) {
    QFileDialog chooser(Parent(), setup.title, setup.folder);
    chooser.setAcceptMode(QFileDialog::AcceptSave);
    chooser.setFileMode(QFileDialog::AnyFile);
    chooser.setOption(QFileDialog::DontConfirmOverwrite);
    chooser.setDefaultSuffix(FirstSuffix(setup.filter));
    return ChooseFile(chooser, setup);
}

std::optional<QString> DesktopDialogs::ChooseFolder(const QString& title, bool network,
                                                    const QString& start) {
    QFileDialog chooser(Parent(), title, QFileInfo(start).isDir() ? start : QDir::homePath());
    chooser.setWindowModality(Qt::ApplicationModal);
    chooser.setFileMode(QFileDialog::Directory);
    chooser.setOption(QFileDialog::ShowDirsOnly);
    QStringList schemes{u"file"_s};
    if (network)
        schemes.append(u"smb"_s);
    chooser.setSupportedSchemes(schemes);
    if (chooser.exec() != QDialog::Accepted || chooser.selectedUrls().isEmpty())
        return std::nullopt;
    return FolderName(chooser.selectedUrls().constFirst(), network);
}

std::optional<QString> DesktopDialogs::FolderName(const QUrl& chosen, bool network) {
    if (chosen.isLocalFile())
        return QDir::toNativeSeparators(chosen.toLocalFile());
    if (!network)
        return std::nullopt;
    const QUrl folder = chosen.adjusted(QUrl::StripTrailingSlash);
    return folder.scheme() + u"://" + folder.host() + folder.path(QUrl::FullyDecoded);
}

std::optional<QString> DesktopDialogs::ChooseComputer(const QString& title) {
    return chooseComputer_ ? chooseComputer_(title, Parent()) : std::nullopt;
}

std::optional<ChosenFont> DesktopDialogs::ChooseFont(const ChosenFont& font) {
    QFont shown(font.family);
    shown.setPointSizeF(font.points);
    shown.setBold(font.bold);
    shown.setItalic(font.italic);
    shown.setUnderline(font.underline);
    shown.setStrikeOut(font.strikeOut);
    QFontDialog chooser(shown, Parent());
    chooser.setWindowModality(Qt::ApplicationModal);
    // The chooser shows the nearest installed font, in whole points. What the user leaves as shown
    // isn't a wish for another font.
    const QFont offered = chooser.currentFont();
    if (chooser.exec() != QDialog::Accepted)
        return std::nullopt;
    const QFont chosen = chooser.selectedFont();
    ChosenFont result = font;
    if (chosen.family() != offered.family())
        result.family = chosen.family();
    if (chosen.pointSizeF() != offered.pointSizeF())
        result.points = chosen.pointSizeF();
    result.bold = chosen.bold();
    result.italic = chosen.italic();
    result.underline = chosen.underline();
    result.strikeOut = chosen.strikeOut();
    return result;
}

} // namespace netrove
