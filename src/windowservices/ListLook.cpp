#include "windowservices/ListLook.h"

#include "controls/Color.h"

namespace netrove {
namespace {

constexpr quint32 White = 0xFFFFFF;

void Apply(const Settings& settings, quint32 ownColor, ListView& list) {
    list.SetBackColor(ToColor(settings.ColorsState == 1 ? ownColor : White));
    list.SetGridLines(settings.GridsState == 1);
}

} // namespace

void ApplyListLook(const Settings& settings, ListView& results, ListView& downloads) {
    Apply(settings, settings.ResultsBackColor, results);
    Apply(settings, settings.DownloadsBackColor, downloads);
}

} // namespace netrove
