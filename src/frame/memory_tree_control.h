// MemoryTreeControl is a tree held in memory, node by node in the order added, for the
// tests and for faces without windows.
#pragma once

#include "frame/tree_control.h"

#include <QList>

namespace orvo {

class MemoryTreeControl : public TreeControl {
public:
    QString ClassName() const override { return QStringLiteral("MemoryTreeControl"); }
    void Clear() override { nodes_.clear(); }
    int AddNode(const QString& key, const QString& parentKey, const QString& text) override;
    int Count() const override { return nodes_.size(); }
    int IndexOf(const QString& key) const override;
    QString Key(int index) const override;
    QString ParentKey(int index) const override;
    QString Text(int index) const override;
    bool Bold(int index) const override;
    void SetBold(int index, bool bold) override;
    bool Expanded(int index) const override;
    void SetExpanded(int index, bool expanded) override;

private:
    struct Node {
        QString key;
        QString parentKey;
        QString text;
        bool bold = false;
        bool expanded = false;
    };
    bool valid(int index) const { return index >= 0 && index < nodes_.size(); }
    QList<Node> nodes_;
};

} // namespace orvo
