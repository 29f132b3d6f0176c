#pragma once

#include "searchrun/PredefinedPatterns.h"
#include "searchrun/SearchStart.h"
#include "windowservices/WindowControls.h"

#include <QComboBox>
#include <QObject>
#include <QPushButton>

namespace netrove {

/// What the inputs of the main window do on events that have no signal of their own.
class InputEvents : public QObject {
    Q_OBJECT

public:
    InputEvents(const WindowControls& controls, PredefinedPatterns& patterns, SearchStart& start);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void LstSearchFor_FocusIn(Qt::FocusReason reason);

    WindowControls controls_;
    PredefinedPatterns& patterns_;
    SearchStart& start_;
};

} // namespace netrove
