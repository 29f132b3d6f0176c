#include "options/NodeTypes.h"

#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "windowservices/PredefinedIcons.h"

namespace netrove {
namespace {

/// The keys of the network's pictures for these types.
constexpr std::array PictureKeys{"folder"_L1, "server"_L1, "domain"_L1, "network"_L1};
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
