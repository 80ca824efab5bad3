// OrvoLayout is the host's layout object, through which the component registers its
// branch of the tree, the files that serve its object codes, and its icons. The host
// shows what it is given in the order it is given.
#pragma once

#include "frame/layout_node.h"

#include <QString>
#include <memory>

namespace orvo {

class OrvoLayout {
public:
    virtual ~OrvoLayout() = default;
    // Opens the branch and returns its root node.
    virtual LayoutNodePtr AddLayout(const QString& key, const QString& code, const QString& title,
                                    const QString& rightKey) = 0;
    // Which file serves a code; the first class goes through AddMainObjectClass.
    virtual void AddMainObjectClass(const QString& file, const QString& code,
                                    const QString& title) = 0;
    virtual void AddObjectClass(const QString& file, const QString& code, const QString& title) = 0;
    // The host's two icon tables; a picture is the name of an icon resource of the
    // component.
    virtual void AddIcon(const QString& key, const QString& picture) = 0;
    virtual void AddTreeIcon(const QString& key, const QString& picture) = 0;
};

using OrvoLayoutPtr = std::shared_ptr<OrvoLayout>;

} // namespace orvo
