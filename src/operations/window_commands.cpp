#include "operations/window_commands.h"

#include "core/null_readers.h"
#include "operations/command_parameters.h"
#include "operations/comment_list_form.h"
#include "operations/entry_card_form.h"
#include "operations/form_access.h"
#include "operations/operation_editor_form.h"
#include "operations/operation_object.h"
#include "operations/protocol_form.h"

namespace orvo {

namespace {

// A protocol stamp as the window shows it; empty when the record has none.
QString stampText(const Value& value) {
    if (value.kind() == Value::Kind::DateTime)
        return value.toDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    return NzString(value);
}

} // namespace

ValueResult WindowCommands::GetCommentList(const ValueArray& parameters) {
    CommandParameters p(parameters);
    const QString text = p.Text(0);
    if (p.Failed())
        return p.Failure()->ToResult();
    const auto form = FormAccess::CreateFormAs<CommentListForm>(QStringLiteral("frmCommentList"));
    if (!form)
        return FormAccess::Unavailable(QStringLiteral("frmCommentList"));
    form->SetOrvoObjectUIO(op_.Self());
    form->SetInitialText(text);
    form->Show(true);
    if (form->Cancelled())
        return ValueResult::Of(Value());
    return ValueResult::Of(Value(form->SelectedComment()));
}

QString WindowCommands::AllowedKindsFor(const QString& foidr) {
    static const QStringList documentKinds = {
        QStringLiteral("O0201501"), QStringLiteral("O0201502"), QStringLiteral("O0201503"),
        QStringLiteral("O0201504"), QStringLiteral("O0201505")};
    if (foidr.size() >= 8 && documentKinds.contains(foidr.left(8)))
        return QStringLiteral("O0201500O0000500O0000300O0000100O0001402O0001401");
    return QString();
}

ValueResult WindowCommands::ShowBR(const ValueArray& parameters) {
    if (parameters.isEmpty())
        return {0, QStringLiteral("ShowBR: nėra parametrų !"), Value(true)};
    CommandParameters p(parameters);
    const QString guid = p.Text(0);
    const bool currenciesEditable = p.Bool(2, true);
    const qint16 tab = p.Int16(3);
    if (p.Failed())
        return p.Failure()->ToResult();

    const QString foidr = NzString(op_.Field(QStringLiteral("FOIDR")));
    bool restricted = false;
    QString allowedKinds;
    const Value second = p.At(1);
    if (second.kind() == Value::Kind::Bool) {
        restricted = second.toBool();
        if (restricted)
            allowedKinds = AllowedKindsFor(foidr);
    } else if (!second.isNull()) {
        allowedKinds = second.toString();
        // An operation that is its own document is never restricted.
        restricted = NzString(op_.Field(QStringLiteral("OIDR"))) != foidr;
    }

    if (!op_.RsFields())
        return CommandFailure::NoOperationRow().ToResult();
    const RecordsetPtr br = op_.Entries();
    if (!br)
        return CommandFailure::Missing(QStringLiteral("BR")).ToResult();
    br->SetFilter(QStringLiteral("GUID = '") + guid + QStringLiteral("'"));
    const bool found = br->RecordCount() > 0;
    br->SetFilter(QString());
    if (!found)
        return {0, QStringLiteral("ShowBR: nėra įrašo !"), Value(false)};

    const auto form = FormAccess::CreateFormAs<EntryCardForm>(QStringLiteral("frmBROperRecord"));
    if (!form)
        return FormAccess::Unavailable(QStringLiteral("frmBROperRecord"));
    form->SetOrvoObjectUIO(op_.Self());
    form->SetEntries(br);
    form->SetGUID(guid);
    form->SetRestricted(restricted);
    form->SetCurrenciesEditable(currenciesEditable);
    form->SetTabNumber(tab);
    form->SetAllowedKinds(allowedKinds);
    form->Show(true);
    FormAccess::GiveEventLoopATurn();
    return ValueResult::Of(Value(form->ResultFlag()));
}

ValueResult WindowCommands::ShowBROper() {
    const auto form = FormAccess::CreateFormAs<OrvoForm>(QStringLiteral("frmBROper"));
    if (!form)
        return FormAccess::Unavailable(QStringLiteral("frmBROper"));
    form->SetBoolModalForm(true);
    form->SetOrvoObjectUIO(op_.Self());
    form->Show(true);
    if (const auto editor = std::dynamic_pointer_cast<OperationEditorForm>(form))
        return ValueResult::Of(editor->ReturnValue());
    return ValueResult::Of(Value());
}

ValueResult WindowCommands::ShowProtocol() {
    const auto form = FormAccess::CreateFormAs<ProtocolForm>(QStringLiteral("frmProtocol"));
    if (!form)
        return FormAccess::Unavailable(QStringLiteral("frmProtocol"));
    form->SetOrvoObjectUIO(op_.Self());
    form->SetProtocol(stampText(op_.Field(QStringLiteral("CreatedByUserName"))),
                      stampText(op_.Field(QStringLiteral("CreationDate"))),
                      stampText(op_.Field(QStringLiteral("ChangedByUserName"))),
                      stampText(op_.Field(QStringLiteral("CorrectionDate"))));
    form->Show(true);
    return ValueResult::Of(Value(true));
}

} // namespace orvo
