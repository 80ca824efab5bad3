// CommentListEditor is the window-free side of the comment list window: it reads the
// book's ready comments through the operation's CommentList property and adds, changes
// and deletes them there. Every change answers with the whole list again, so what the
// window shows is always what the book holds.
//
// The property is given one text: the action, the comment's ID and the comment quoted.
// An apostrophe would end the quoted value early, so each one is replaced by a blank
// before quoting; the stored comment carries the blank. A refusal of the book is shown to
// the user by the property's convention; the result carries it for the caller to act on.
#pragma once

#include "core/results.h"
#include "frame/orvo_object_uio.h"

#include <QString>
#include <QVector>

namespace orvo {

class CommentListEditor {
public:
    struct Row {
        qint64 ID = 0;
        QString Name;
    };

    explicit CommentListEditor(OrvoObjectUIOPtr operation) : op_(std::move(operation)) {}

    // The property's parameter text: 'action',ID,'text' with the text's apostrophes
    // turned into blanks.
    static QString ParameterText(const QString& action, qint64 id, const QString& text);

    ResultRecord Load();
    ResultRecord Add(const QString& text);
    ResultRecord Change(qint64 id, const QString& text);
    ResultRecord Delete(qint64 id);

    const QVector<Row>& Rows() const { return rows_; }
    // The position of the row with that ID (or, without one, with that text); -1 when
    // none.
    int IndexOf(qint64 id) const;
    int IndexOfText(const QString& text) const;

private:
    ResultRecord run(const QString& action, qint64 id, const QString& text);

    OrvoObjectUIOPtr op_;
    QVector<Row> rows_;
};

} // namespace orvo
