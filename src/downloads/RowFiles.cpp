#include "downloads/RowFiles.h"

#include <QUrl>

namespace netrove {

std::unique_ptr<QMimeData> RowFiles(const ListView& list, const std::vector<int>& rows,
                                    Shell& shell) {
    QStringList paths;
    QList<QUrl> addresses;
    for (const int row : rows) {
        const QString path = list.SubItem(row, 1) + list.Text(row);
        paths.append(path);
        if (const std::optional<QUrl> address = shell.Address(path))
            addresses.append(*address);
    }
    auto files = std::make_unique<QMimeData>();
    if (!addresses.isEmpty())
        files->setUrls(addresses);
    files->setText(paths.join(u'\n'));
    return files;
}

} // namespace netrove
