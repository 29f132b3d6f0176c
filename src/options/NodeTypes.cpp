#include "options/NodeTypes.h"

#include "runtime/Text.h"
#include "windowservices/PredefinedIcons.h"

namespace netrove {
namespace {

/// The keys of the network's pictures that show them.
constexpr std::array PictureKeys{QLatin1String("folder"), QLatin1String("server"),
                                 QLatin1String("domain"), QLatin1String("network")};
static_assert(PictureKeys.size() == NodeTypes.size());

} // namespace

QIcon NodeTypeIcon(std::size_t type) {
    return NetworkIcon(PictureKeys.at(type));
}

void AddNodeTypeIcons(ImageList& images) {
    for (std::size_t type = 0; type < NodeTypes.size(); ++type)
        images.Add(NodeTypes.at(type), NodeTypeIcon(type));
}

QString NodeTypeKey(const QString& type) {
    for (const QLatin1String word : NodeTypes) {
        if (EqualText(QString(word), type))
            return word;
    }
    return type;
}

} // namespace netrove
