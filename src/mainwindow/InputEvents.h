#pragma once

#include "searchrun/PredefinedPatterns.h"
#include "searchrun/SearchStart.h"

#include <QComboBox>
#include <QObject>
#include <QPushButton>

namespace netrove {

/// What the inputs of the main window do on events that have no signal of their own.
class InputEvents : public QObject {
    Q_OBJECT

public:
    struct Controls {
        QComboBox& LstSearchFor;
        QWidget& imgFiles; ///< the picture that is there while no job runs
        QPushButton& cmdInpNetNode;
    };

    InputEvents(const Controls& controls, PredefinedPatterns& patterns, SearchStart& start);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void LstSearchFor_FocusIn(Qt::FocusReason reason);

    Controls controls_;
    PredefinedPatterns& patterns_;
    SearchStart& start_;
};

} // namespace netrove
