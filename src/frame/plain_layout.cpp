#include "frame/plain_layout.h"

namespace orvo {

namespace {

// A node of the plain layout: it writes its calls into the layout's rows.
class PlainLayoutNode : public LayoutNode {
public:
    using Rows = QList<PlainLayout::Row>;
    PlainLayoutNode(std::shared_ptr<Rows> rows, QString code)
        : rows_(std::move(rows)), code_(std::move(code)) {}

    LayoutNodePtr AddNode(const QString& code, const QString& title,
                          const QString& rightKey) override {
        append(QStringLiteral("AddNode"), {code_, code, title, rightKey});
        return std::make_shared<PlainLayoutNode>(rows_, code);
    }
    void SetObject(const QString& text) override {
        append(QStringLiteral("SetObject"), {code_, text});
    }
    void SetCatalogue(qint16 flag) override {
        append(QStringLiteral("SetCatalogue"), {code_, QString::number(flag)});
    }

private:
    void append(const QString& operation, const QStringList& arguments) {
        rows_->append({operation, arguments});
    }

    std::shared_ptr<Rows> rows_;
    QString code_;
};

} // namespace

void PlainLayout::Append(const QString& operation, const QStringList& arguments) {
    rows_->append({operation, arguments});
}

LayoutNodePtr PlainLayout::AddLayout(const QString& key, const QString& code, const QString& title,
                                     const QString& rightKey) {
    Append(QStringLiteral("AddLayout"), {key, code, title, rightKey});
    return std::make_shared<PlainLayoutNode>(rows_, code);
}

void PlainLayout::AddMainObjectClass(const QString& file, const QString& code,
                                     const QString& title) {
    Append(QStringLiteral("AddMainObjectClass"), {file, code, title});
}

void PlainLayout::AddObjectClass(const QString& file, const QString& code, const QString& title) {
    Append(QStringLiteral("AddObjectClass"), {file, code, title});
}

void PlainLayout::AddIcon(const QString& key, const QString& picture) {
    Append(QStringLiteral("AddIcon"), {key, picture});
}

void PlainLayout::AddTreeIcon(const QString& key, const QString& picture) {
    Append(QStringLiteral("AddTreeIcon"), {key, picture});
}

QList<PlainLayout::Row> PlainLayout::RowsOf(const QString& operation) const {
    QList<Row> out;
    for (const Row& r : *rows_)
        if (r.Operation == operation)
            out.append(r);
    return out;
}

} // namespace orvo
