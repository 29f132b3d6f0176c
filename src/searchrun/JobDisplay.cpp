#include "searchrun/JobDisplay.h"

#include "runtime/SourceText.h"

#include <utility>

namespace netrove {
namespace {

EnType TypeOf(JobKind kind) {
    return kind == JobKind::Browse ? EnType::WithAbandon : EnType::WithoutAbandon;
}

QString StatusOf(JobKind kind) {
    switch (kind) {
    case JobKind::Search:
        return u"Searching..."_s;
    case JobKind::Load:
        return u"Loading..."_s;
    case JobKind::Save:
        return u"Saving..."_s;
    case JobKind::Clear:
    case JobKind::Browse:
        break;
    }
    return u"Idle"_s;
}

} // namespace

JobDisplay::JobDisplay(Controls controls, CurrentJob& job)
    : controls_(std::move(controls)), computers_(controls_.stbStatus) {
    job.Shown = [this](JobKind kind) { Show(kind); };
    job.Hidden = [this](JobKind kind) { Hide(kind); };
}

void JobDisplay::EnableButtons(bool bs, EnType enType) {
    for (QAction* item : controls_.fileItems)
        item->setEnabled(bs);
    for (QAction* item : controls_.helpItems)
        item->setEnabled(bs);
    controls_.filesPicture.setVisible(bs);
    controls_.filesPicture.setEnabled(bs);
    controls_.busyPicture.setVisible(!bs);
    controls_.busyPicture.setEnabled(!bs);
    for (QWidget* input : controls_.inputs)
        input->setEnabled(bs);
    if (enType == EnType::WithAbandon)
        controls_.cmdAbandon.setEnabled(bs);
}

void JobDisplay::Show(JobKind kind) {
    EnableButtons(false, TypeOf(kind));
    // Removes what the last search hasn't seen.
    computers_.Clear();
    if (!IsLong(kind))
        return;
    controls_.cmdAbandon.setEnabled(true);
    controls_.cmdAbandon.setFocus();
    controls_.stbStatus.SetText(1, StatusOf(kind));
}

void JobDisplay::Hide(JobKind kind) {
    if (IsLong(kind))
        controls_.cmdAbandon.setEnabled(false);
    EnableButtons(true, TypeOf(kind));
    if (!IsLong(kind))
        return;
    controls_.stbStatus.SetText(1, u"Idle"_s);
    controls_.stbStatus.SetText(2, QString());
    controls_.stbStatus.SetToolTipText(2, QString());
}

} // namespace netrove
