#pragma once

#include <QWidget>

namespace netrove {

class SkinConfiguration;

/// The frame of one window: each window that can be skinned owns one. Colours have red in the low
/// byte.
class NCSizeModifier {
public:
    NCSizeModifier() = default;
    NCSizeModifier(const NCSizeModifier&) = delete;
    NCSizeModifier& operator=(const NCSizeModifier&) = delete;
    virtual ~NCSizeModifier() = default;

    /// Gives the window its standard frame back.
    virtual void Detach() = 0;

    /// The background colour for the window's client area, and the text colour on it. Before Attach
    /// they are the desktop's.
    [[nodiscard]] virtual quint32 ResolvedBackColor() const = 0;
    [[nodiscard]] virtual quint32 ResolvedForeColor() const = 0;

    /// Binds the window to the configuration and paints the frame by it. Calling it again with a
    /// changed or another configuration repaints.
    virtual void Attach(QWidget& window, const SkinConfiguration& configuration) = 0;
};

} // namespace netrove
