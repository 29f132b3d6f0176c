#pragma once

#include <QPushButton>
#include <QShortcut>

#include <vector>

namespace netrove {

class ListView;

/// The button that Enter presses in the main window: the one that has the focus, else the search
/// button. While a list has the focus, Enter goes to that list.
class DefaultButton : public QObject {
    Q_OBJECT

public:
    DefaultButton(QWidget& window, QPushButton& cmdStartSearch,
                  const std::vector<const ListView*>& lists);

private:
    void Press();
    void SetDefault(bool isDefault);

    QWidget& window_;
    QPushButton& cmdStartSearch_;
    std::vector<QShortcut*> keys_;
};

} // namespace netrove
