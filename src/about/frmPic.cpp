#include "about/frmPic.h"

#include "runtime/SourceText.h"
#include "windowservices/PredefinedIcons.h"
#include "windowservices/WindowGeometry.h"

#include <QMouseEvent>
#include <QVBoxLayout>

namespace netrove {

frmPic::frmPic(const QWidget& mainWindow, QWidget* owner)
    : QDialog(owner), picDudes_(new QLabel(this)) {
    setObjectName(u"frmPic"_s);
    setWindowTitle(tr("Up at the Tarn"));
    picDudes_->setObjectName(u"picDudes"_s);
    picDudes_->setPixmap(DudesPicture(devicePixelRatioF()));
    picDudes_->setToolTip(tr("The makers, after the release"));
    picDudes_->setAccessibleName(picDudes_->toolTip());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(picDudes_);
    adjustSize();
    CentreWindow(mainWindow, *this);
}

/// Clicks on the picture reach the window too, because the label ignores them.
void frmPic::mousePressEvent(QMouseEvent* event) {
    event->accept();
    close();
}

void frmPic::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() != QEvent::ActivationChange)
        return;
    if (wasActive_ && !isActiveWindow())
        close();
    wasActive_ = isActiveWindow();
}

} // namespace netrove
