#include "browser/LoadProgress.h"

#include "browser/BrowserControls.h"
#include "runtime/SourceText.h"

#include <cmath>

namespace netrove {
namespace {

constexpr int BarLength = 35; // characters

QString Bar(int length) {
    return QString(length, u'|');
}

} // namespace

void LoadProgress::Reset(BrowserControls& controls) {
    controls.lblProg->clear();
    controls.lblProcPerc->setText(u"0%"_s);
}

QString LoadProgress::FullBar() {
    return Bar(BarLength);
}

void LoadProgress::Show() {
    const float LoadFraction = static_cast<float>(NodesDone) / static_cast<float>(NodesTotal);
    controls_.lblProg->setText(Bar(static_cast<int>(std::lrint(LoadFraction * BarLength))));
    controls_.lblProcPerc->setText(QString::number(static_cast<int>(LoadFraction * 100)) + u'%');
    controls_.lblProg->repaint();
    controls_.lblProcPerc->repaint();
}

} // namespace netrove
