#include "forms/search/treeimages.h"

#include "app/toolbaricons.h"

#include <QHash>

#include <functional>

using namespace Qt::StringLiterals;

QIcon TreeImage(const QString &key)
{
    // The same pictures as the toolbar's buttons, so that a topic looks like a topic
    // wherever it is shown.
    static const QHash<QString, std::function<QIcon()>> images{
        {u"Topic"_s, &ToolbarIcons::topic},
        {u"Author"_s, &ToolbarIcons::author},
        {u"Book"_s, &ToolbarIcons::book},
        {u"OpenBook"_s, &ToolbarIcons::openBook},
    };
    const auto image = images.constFind(key);
    return image == images.cend() ? QIcon() : (*image)();
}
