#include "operations/comment_list_editor.h"

#include "core/null_readers.h"
#include "core/recordset.h"

namespace orvo {

QString CommentListEditor::ParameterText(const QString& action, qint64 id, const QString& text) {
    QString quoted = text;
    quoted.replace(QLatin1Char('\''), QLatin1Char(' '));
    return QStringLiteral("'%1',%2,'%3'").arg(action).arg(id).arg(quoted);
}

ResultRecord CommentListEditor::Load() {
    return run(QStringLiteral("List"), 0, QString());
}

ResultRecord CommentListEditor::Add(const QString& text) {
    return run(QStringLiteral("Add"), 0, text);
}

ResultRecord CommentListEditor::Change(qint64 id, const QString& text) {
    return run(QStringLiteral("Change"), id, text);
}

ResultRecord CommentListEditor::Delete(qint64 id) {
    return run(QStringLiteral("Delete"), id, QString());
}

int CommentListEditor::IndexOf(qint64 id) const {
    for (int i = 0; i < rows_.size(); ++i)
        if (rows_[i].ID == id)
            return i;
    return -1;
}

int CommentListEditor::IndexOfText(const QString& text) const {
    const QString sought = text.trimmed();
    if (sought.isEmpty())
        return -1;
    for (int i = 0; i < rows_.size(); ++i)
        if (rows_[i].Name == sought)
            return i;
    return -1;
}

ResultRecord CommentListEditor::run(const QString& action, qint64 id, const QString& text) {
    if (!op_)
        return ResultRecord::Failure(1, QStringLiteral("Nėra operacijos, kurios komentarai "
                                                       "skaitomi."));
    const ValueResult r =
        op_->Properties(QStringLiteral("CommentList"), ParameterText(action, id, text));
    if (!r.ok())
        return ResultRecord::Failure(r.Code, r.Text);
    rows_.clear();
    if (const RecordsetPtr rs = r.Value.toRecordset())
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
            rows_.append({NzLong(rs->Field(QStringLiteral("ID"))),
                          NzString(rs->Field(QStringLiteral("Name")))});
    return ResultRecord::Success();
}

} // namespace orvo
