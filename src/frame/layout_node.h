// LayoutNode is one node of the host's tree as the component sees it while it
// registers its branch: it takes child nodes, the text of what it shows, and the mark
// that it is a catalogue of the host rather than a branch of the component.
#pragma once

#include <QString>
#include <memory>

namespace orvo {

class LayoutNode {
public:
    virtual ~LayoutNode() = default;
    // Adds a child node and returns it. An empty right key means no right.
    virtual std::shared_ptr<LayoutNode> AddNode(const QString& code, const QString& title,
                                                const QString& rightKey) = 0;
    // What the node shows: an object code, or a text of several.
    virtual void SetObject(const QString& text) = 0;
    // The node is a catalogue of the host; the host's true is -1.
    virtual void SetCatalogue(qint16 flag) = 0;
};

using LayoutNodePtr = std::shared_ptr<LayoutNode>;

} // namespace orvo
