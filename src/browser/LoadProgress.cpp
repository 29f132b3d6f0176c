#include "browser/LoadProgress.h"

#include "browser/BrowserControls.h"

#include <cmath>

namespace netrove {
namespace {

constexpr int BarLength = 35; // characters

QString Bar(int length) {
    return QString(length, QLatin1Char('|'));
}

} // namespace

void LoadProgress::Reset(BrowserControls& controls) {
    controls.lblProg->clear();
    controls.lblProcPerc->setText(QStringLiteral("0%"));
}

QString LoadProgress::FullBar() {
    return Bar(BarLength);
}

void LoadProgress::Show() {
    const float LoadFraction = float(NodesDone) / float(NodesTotal);
    controls_.lblProg->setText(Bar(int(std::lrint(LoadFraction * BarLength))));
    controls_.lblProcPerc->setText(QString::number(int(LoadFraction * 100)) + u'%');
    controls_.lblProg->repaint();
    controls_.lblProcPerc->repaint();
}

} // namespace netrove
