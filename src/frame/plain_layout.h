// PlainLayout is the layout for a system without the host's own: it records every
// registration call in order as a row of the operation's name and its arguments, so
// the desktop can build its tree from the rows and the tests can read them. A node's
// operations name the node by its code as their first argument:
//   AddLayout          Key, Code, Title, RightKey
//   AddNode            ParentCode, Code, Title, RightKey
//   SetObject          NodeCode, Text
//   SetCatalogue       NodeCode, Flag ("-1")
//   AddMainObjectClass File, Code, Title      (AddObjectClass likewise)
//   AddIcon            Key, Picture           (AddTreeIcon likewise)
#pragma once

#include "frame/orvo_layout.h"

#include <QList>
#include <QStringList>

namespace orvo {

class PlainLayout : public OrvoLayout {
public:
    struct Row {
        QString Operation;
        QStringList Arguments;
        friend bool operator==(const Row& a, const Row& b) {
            return a.Operation == b.Operation && a.Arguments == b.Arguments;
        }
    };

    LayoutNodePtr AddLayout(const QString& key, const QString& code, const QString& title,
                            const QString& rightKey) override;
    void AddMainObjectClass(const QString& file, const QString& code,
                            const QString& title) override;
    void AddObjectClass(const QString& file, const QString& code, const QString& title) override;
    void AddIcon(const QString& key, const QString& picture) override;
    void AddTreeIcon(const QString& key, const QString& picture) override;

    const QList<Row>& Rows() const { return *rows_; }
    // The rows of one operation, in order.
    QList<Row> RowsOf(const QString& operation) const;
    void Append(const QString& operation, const QStringList& arguments);

private:
    // Shared with the nodes, which may outlive the layout object itself.
    std::shared_ptr<QList<Row>> rows_ = std::make_shared<QList<Row>>();
};

} // namespace orvo
