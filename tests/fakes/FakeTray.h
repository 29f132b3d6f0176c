#pragma once

#include "platform/Tray.h"

#include <optional>

namespace netrove {

/// A tray that comes and goes as the test wants.
class FakeTray : public Tray {
public:
    std::optional<QString> Tip; ///< of the icon, while one is shown
    QRect Location;             ///< of the icon
    bool Works = true;

    [[nodiscard]] bool IsThere() const override { return Works; }
    void Show(const QString& tip, QMenu& /*menu*/) override { Tip = tip; }
    void SetTip(const QString& tip) override { Tip = tip; }
    void Remove() override { Tip.reset(); }
    [[nodiscard]] QRect Place() const override { return Location; }

    void Become(bool works) {
        Works = works;
        Q_EMIT Changed();
    }
    void DoubleClick() { Q_EMIT DoubleClicked(); }
};

} // namespace netrove
