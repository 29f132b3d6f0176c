#include "platform/desktop/DesktopDialogs.h"

#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QVBoxLayout>

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

} // namespace

MessageAnswer DesktopDialogs::Message(MessageIcon icon, const QString& text, const QString& title,
                                      MessageButtons buttons) {
    QMessageBox box(parent_);
    box.setIcon(BoxIcon(icon));
    box.setTextFormat(Qt::PlainText);
    box.setText(QString(text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    box.setWindowTitle(title);
    box.setWindowModality(Qt::ApplicationModal);

    const bool question = buttons == MessageButtons::YesNo;
    box.setStandardButtons(question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
    const QMessageBox::StandardButton safe = question ? QMessageBox::No : QMessageBox::Ok;
    box.setDefaultButton(safe);
    box.setEscapeButton(safe);

    const int answer = box.exec();
    if (!question)
        return MessageAnswer::Ok;
    return answer == QMessageBox::Yes ? MessageAnswer::Yes : MessageAnswer::No;
}

QString DesktopDialogs::InputBox(const QString& prompt, const QString& title) {
    QInputDialog box(parent_);
    box.setWindowTitle(title);
    box.setWindowModality(Qt::ApplicationModal);
    box.setLabelText(prompt);
    for (QLabel* label : box.findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText);
    return box.exec() == QDialog::Accepted ? box.textValue() : QString();
}

} // namespace netrove
