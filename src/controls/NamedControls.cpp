#include "controls/NamedControls.h"

#include "runtime/SourceText.h"

namespace netrove {

QPushButton* NamedButton(QWidget& parent, const QString& name, const QString& caption,
                         const char* toolTip) {
    return Named(new QPushButton(caption, &parent), name, toolTip);
}

QLabel* NamedLabel(QWidget& parent, const QString& name, const QString& text) {
    auto* label = Named(new QLabel(text, &parent), name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QString ElementName(const char* name, std::size_t index) {
    return Text(name) + u'(' + QString::number(index) + u')';
}

} // namespace netrove
