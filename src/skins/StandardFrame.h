#pragma once

#include "skins/NCSizeModifier.h"

#include <QPointer>

namespace netrove {

/// A frame that leaves the window to the desktop: the window keeps its standard frame, whatever the
/// configuration, and the colours are those of its palette.
class StandardFrame : public NCSizeModifier {
public:
    void Detach() override { window_.clear(); }
    [[nodiscard]] quint32 ResolvedBackColor() const override;
    [[nodiscard]] quint32 ResolvedForeColor() const override;
    void Attach(QWidget& window, const SkinConfiguration& configuration) override;

private:
    [[nodiscard]] quint32 PaletteColor(QPalette::ColorRole role) const;

    QPointer<QWidget> window_;
};

} // namespace netrove
