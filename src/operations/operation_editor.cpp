#include "operations/operation_editor.h"

#include "core/dates.h"
#include "core/null_readers.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "core/today.h"
#include "frame/catalogue.h"
#include "frame/messages.h"
#include "frame/orvo_desktop_service.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "frame/orvo_shell_service.h"
#include "frame/pickers.h"
#include "operations/entry_month_copy.h"
#include "operations/form_access.h"

namespace orvo {

namespace {

const QString kGroupCode = QStringLiteral("O0201400");
const QString kPlainKind = QStringLiteral("O0201500");

// The forms a next action or the panel menu opens on the same operation.
QString settlementFormFor(const QString& action) {
    if (action == QStringLiteral("Skolų dengimas"))
        return QStringLiteral("frmDebtsCover");
    if (action == QStringLiteral("Valiutos perskaičiavimas"))
        return QStringLiteral("frmCurrencyInfluence");
    if (action == QLatin1String("Valiutos pirkimas/pardavimas") ||
        action == QLatin1String("Valiutos pirkimas / pardavimas"))
        return QStringLiteral("frmCurrencyExchange");
    return QString();
}

QString currencyOfSide(const RecordsetPtr& currencies, bool debit) {
    if (!currencies)
        return QString();
    for (currencies->MoveFirst(); !currencies->Eof(); currencies->MoveNext()) {
        const bool rowDebit = NzInt(currencies->Field(QStringLiteral("Sign"))) == 1;
        const QString code = NzString(currencies->Field(QStringLiteral("FCurrencyCode"))).trimmed();
        if (rowDebit == debit && !code.isEmpty())
            return code;
    }
    return QString();
}

QString addresseesText(const RecordsetPtr& properties) {
    QStringList texts;
    if (properties)
        for (properties->MoveFirst(); !properties->Eof(); properties->MoveNext()) {
            const QString text = NzString(properties->Field(QStringLiteral("ShowString")));
            if (!text.isEmpty())
                texts.append(text);
        }
    return texts.join(QStringLiteral("; "));
}

} // namespace

OperationEditor::OperationEditor(OrvoObjectUIOPtr operation) : op_(std::move(operation)) {}

RecordsetPtr OperationEditor::entries() const {
    return op_ ? op_->Field(QStringLiteral("BR")).toRecordset() : nullptr;
}

bool OperationEditor::IsNew() const {
    return !op_ || op_->OIDR().size() < 9;
}

QString OperationEditor::groupId() const {
    const qint32 id = op_ ? NzLong(op_->Field(QStringLiteral("BROperGroupID"))) : 0;
    return id > 0 ? QString::number(id) : QString();
}

QStringList OperationEditor::VATRegisters() {
    return {QStringLiteral("Ne"), QStringLiteral("Gauta PVM sąskaita faktūra"),
            QStringLiteral("Išrašyta PVM sąskaita faktūra")};
}

void OperationEditor::Load(bool modal) {
    Modal = modal;
    if (modal) {
        Rights = RightsRecord();
        Rights.Read = RightsRecord::Flag(true);
    } else {
        Rights = Catalogue::RightsFor(QStringLiteral("CBROperRights") + groupId());
    }
    Suspended = true;
    SetTitleAndCommands();
    LoadGroup();
    LoadFields();
    LoadNumber();
    PaintEntries();
    RunDefaultTemplate();
    if (!IsNew())
        ReadRelatedRows();
    if (!groupParameters_.isEmpty() && op_->OType() == kPlainKind && IsNew()) {
        NextAction = groupParameters_;
        TimerPending = true;
    }
    Suspended = false;
}

void OperationEditor::SetTitleAndCommands() {
    Title = IsNew() ? QStringLiteral(" Nauja finansinė operacija")
                    : QStringLiteral(" Finansinė operacija");
    PrintEnabled = !IsNew();
    ProtocolEnabled = !IsNew();
    const QString id = groupId();
    GroupRef = id.isEmpty() ? QString() : kGroupCode + id;
    ViewsEnabled = !IsNew() && !Modal;
    GroupAndCommentPickEnabled = Rights.Edit != 0;
}

bool OperationEditor::LoadGroup() {
    groupParameters_.clear();
    if (GroupRef.size() < 9)
        return true;
    const ValueResult answer = op_->Properties(
        QStringLiteral("Parent"), QStringLiteral("'") + GroupRef + QStringLiteral("'"));
    const RecordsetPtr group = answer.ok() ? answer.Value.toRecordset() : nullptr;
    if (!group || group->RecordCount() == 0)
        return true;
    group->MoveFirst();
    const QString formOid = NzString(group->Field(QStringLiteral("FormOID")));
    const bool fits = formOid == kPlainKind ||
                      (op_->OType() == QLatin1String("O0300100") && formOid == op_->OType());
    if (!fits) {
        ShowWarning(QStringLiteral("Grupės tipas neatitinka operacijos tipo!"));
        GroupRef.clear();
        GroupText.clear();
        return false;
    }
    const QString oidr = NzString(group->Field(QStringLiteral("OIDR")));
    if (oidr.size() >= 9)
        GroupRef = oidr;
    GroupPreview = NzString(group->Field(QStringLiteral("Preview")));
    GroupText =
        GroupPreview.isEmpty() ? NzString(group->Field(QStringLiteral("Name"))) : GroupPreview;
    PreviewPath = NzString(group->Field(QStringLiteral("PreviewPath")));
    BRTemplateID = NzLong(group->Field(QStringLiteral("BRTemplateID")));
    DefaultTemplateID = NzLong(group->Field(QStringLiteral("DefaultTemplateID")));
    if (op_->OType() == QLatin1String("O1000100")) {
        SeriesDefault.clear();
        SeriesIndication = 1;
        Mask.clear();
    } else {
        SeriesDefault = NzString(group->Field(QStringLiteral("Serija")));
        SeriesIndication = NzInt(group->Field(QStringLiteral("SerijaIndication")));
        Mask = NzString(group->Field(QStringLiteral("ANMask")));
    }
    groupParameters_ = NzString(group->Field(QStringLiteral("Parameters")));
    return true;
}

void OperationEditor::LoadFields() {
    Comment = NzString(op_->Field(QStringLiteral("Comment")));
    Date = NzDate(op_->Field(QStringLiteral("DateD")), QDate());
    if (!Date.isValid()) {
        Date = Today();
        op_->SetField(QStringLiteral("DateD"), Value(Date));
    }
    VATIndex = NzInt(op_->Field(QStringLiteral("VATRegisterIndication")));
    const QString stored = NzString(op_->Field(QStringLiteral("Serija")));
    Serija = IsNew() ? SeriesDefault : stored;
    ShowSeries = SeriesIndication != 0 || !stored.isEmpty();
}

void OperationEditor::LoadNumber() {
    if (IsNew() && !Mask.isEmpty())
        Number = op_->Methods(QStringLiteral("GetAutoNumber"), {}).Value.toString();
    else if (IsNew())
        Number.clear();
    else
        Number = NzString(op_->Field(QStringLiteral("Number")));
}

void OperationEditor::PaintEntries() {
    Rows.clear();
    const RecordsetPtr br = entries();
    if (!br)
        return;
    br->SetFilter(QString());
    bool anyTrade = false;
    bool first = true;
    for (br->MoveFirst(); !br->Eof(); br->MoveNext()) {
        EntryRow row;
        row.GUID = NzString(br->Field(QStringLiteral("GUID")));
        const RecordsetPtr currencies = br->Field(QStringLiteral("BRCurrency")).toRecordset();
        row.Cells = {DateParam(NzDate(br->Field(QStringLiteral("DateD")), Date)),
                     NzString(br->Field(QStringLiteral("AccountD"))),
                     NzString(br->Field(QStringLiteral("AccountC"))),
                     FormatAmount(NzDouble(br->Field(QStringLiteral("SumA")))),
                     currencyOfSide(currencies, true),
                     currencyOfSide(currencies, false),
                     addresseesText(br->Field(QStringLiteral("BRProperties")).toRecordset())};
        const qint16 trade = NzInt(br->Field(QStringLiteral("TradeOperationType")));
        if (first) {
            FirstTradeType = trade;
            FirstVATTariff = NzDouble(br->Field(QStringLiteral("VATTariff")));
            FirstRestoringSign = NzInt(br->Field(QStringLiteral("RestoringSign")));
            first = false;
        }
        anyTrade = anyTrade || trade >= 1;
        Rows.append(row);
    }
    // TestOper filters the entries, so it runs after the walk.
    for (EntryRow& row : Rows) {
        const ValueResult test = op_->Methods(QStringLiteral("TestOper"), {Value(row.GUID)});
        row.Passed = test.ok() && test.Value.toBool();
    }
    br->SetFilter(QString());
    VATVisible = anyTrade;
    if (anyTrade && IsNew() && VATIndex == 0)
        VATIndex = FirstTradeType <= 2 ? 1 : 2;
}

QVector<OperationEditor::BalanceRow> OperationEditor::Balance() const {
    QVector<BalanceRow> rows;
    const RecordsetPtr br = entries();
    if (!br)
        return rows;
    auto add = [&rows](const QString& account, double debit, double credit) {
        for (BalanceRow& row : rows)
            if (row.Account == account) {
                row.Debit += debit;
                row.Credit += credit;
                return;
            }
        rows.append({account, debit, credit});
    };
    const qint64 position = br->Bookmark();
    for (br->MoveFirst(); !br->Eof(); br->MoveNext()) {
        const double sum = NzDouble(br->Field(QStringLiteral("SumA")));
        add(NzString(br->Field(QStringLiteral("AccountD"))), sum, 0);
        add(NzString(br->Field(QStringLiteral("AccountC"))), 0, sum);
    }
    br->SetBookmark(position);
    return rows;
}

void OperationEditor::RunDefaultTemplate() {
    if (!IsNew() || DefaultTemplateID <= 0 || !Rows.isEmpty() ||
        !NzString(op_->Field(QStringLiteral("Parameters"))).isEmpty())
        return;
    op_->Methods(QStringLiteral("AddTemplate"),
                 {Value(DefaultTemplateID), Value(0.0), Value(ValueArray())});
    PaintEntries();
    if (!Rows.isEmpty()) {
        markChanged();
        NextAction = QStringLiteral("TemplateBR");
        TimerPending = true;
    }
}

void OperationEditor::ReadRelatedRows() {
    // The book answers the rows that refer to this operation's entries by its reference.
    const ValueResult answer = op_->Properties(
        QStringLiteral("RelatedBR"), QStringLiteral("'") + op_->OIDR() + QStringLiteral("'"));
    Related = answer.ok() ? answer.Value.toRecordset() : nullptr;
}

bool OperationEditor::CanWrite() const {
    if (!Changed || GroupRef.size() < 9 || Rows.isEmpty())
        return false;
    for (const EntryRow& row : Rows)
        if (!row.Passed)
            return false;
    return true;
}

bool OperationEditor::CanNew() const {
    return Rights.Create != 0 && !IsNew() && !Changed && !Modal;
}

bool OperationEditor::CanCancel() const {
    return !IsNew() && Rights.Edit != 0 && Changed;
}

QString OperationEditor::FirstEntryGUID() const {
    return Rows.isEmpty() ? QString() : Rows.first().GUID;
}

OperationEditor::CardFollowup OperationEditor::followupOf(qint16 result) const {
    if (result == 2)
        return CardFollowup::Write;
    if (result == 3)
        return CardFollowup::WriteAndNew;
    return CardFollowup::None;
}

OperationEditor::CardFollowup OperationEditor::OpenEntryCard(const QString& guid, qint16 tab) {
    if (guid.isEmpty())
        return CardFollowup::None;
    const bool first = guid == FirstEntryGUID();
    const ValueResult shown = op_->Methods(
        QStringLiteral("ShowBR"), {Value(guid), Value(Rights.Edit == 0), Value(true), Value(tab)});
    const qint16 result = shown.ok() ? NzInt(shown.Value) : 0;
    const QString action = NextAction;
    NextAction.clear();
    if (result != 0) {
        markChanged();
        if (first) {
            const RecordsetPtr br = entries();
            if (br &&
                Catalogue::TryFilter(br, QStringLiteral("GUID = '") + guid + QStringLiteral("'"))) {
                const QDate date = NzDate(br->Field(QStringLiteral("DateD")), QDate());
                br->SetFilter(QString());
                if (date.isValid()) {
                    Date = date;
                    op_->SetField(QStringLiteral("DateD"), Value(date));
                }
            }
        }
        PaintEntries();
        return followupOf(result);
    }
    if (action == QLatin1String("FreeBR") || action == QLatin1String("TemplateBR")) {
        op_->Methods(QStringLiteral("DeleteBR"), {Value(guid), Value(qint16(9))});
        PaintEntries();
    }
    return CardFollowup::None;
}

OperationEditor::CardFollowup OperationEditor::RunNextAction() {
    TimerPending = false;
    const QString action = NextAction;
    if (action == QLatin1String("TemplateBR"))
        return OpenEntryCard(FirstEntryGUID());
    NextAction.clear();
    OpenSettlementForm(action);
    return CardFollowup::None;
}

bool OperationEditor::OpenSettlementForm(const QString& caption) {
    const QString name = settlementFormFor(caption);
    if (name.isEmpty())
        return false;
    const auto form = FormAccess::CreateFormAs<OrvoForm>(name);
    if (!form) {
        ShowWarning(FormAccess::Unavailable(name).Text);
        return false;
    }
    // The settling windows read the operation's date and comment and may set them, so the
    // editor hands over what it shows and takes back what the window left: otherwise the
    // next save would write the editor's old values over the window's.
    if (NzDate(op_->Field(QStringLiteral("DateD")), QDate()) != Date)
        op_->SetField(QStringLiteral("DateD"), Value(Date));
    if (NzString(op_->Field(QStringLiteral("Comment"))) != Comment)
        op_->SetField(QStringLiteral("Comment"), Value(Comment));
    form->SetOrvoObjectUIO(op_);
    form->Show(true);
    const QDate date = NzDate(op_->Field(QStringLiteral("DateD")), Date);
    const QString comment = NzString(op_->Field(QStringLiteral("Comment")));
    if (date != Date || comment != Comment) {
        Date = date;
        Comment = comment;
        markChanged();
    }
    PaintEntries();
    return true;
}

OperationEditor::CardFollowup OperationEditor::AddFreeEntry() {
    const ValueResult added = op_->Methods(
        QStringLiteral("AddBR"),
        {Value(QStringLiteral("?")), Value(QStringLiteral("?")), Value(0.0), Value(ValueArray())});
    const QString guid = added.ok() ? added.Value.toString() : QString();
    if (guid.isEmpty())
        return CardFollowup::None;
    markChanged();
    PaintEntries();
    NextAction = QStringLiteral("FreeBR");
    return OpenEntryCard(guid);
}

bool OperationEditor::ApplyTemplate(bool replace, qint32 templateId, double sum) {
    if (templateId <= 0)
        return false;
    if (replace)
        op_->Methods(QStringLiteral("DeleteBR"), {Value(QString())});
    const ValueResult added = op_->Methods(QStringLiteral("AddTemplate"),
                                           {Value(templateId), Value(sum), Value(ValueArray())});
    markChanged();
    PaintEntries();
    if (!added.ok())
        return false;
    NextAction = QStringLiteral("TemplateBR");
    return true;
}

bool OperationEditor::CopyEntry(const QString& guid) {
    const RecordsetPtr br = entries();
    if (!br || guid.isEmpty() ||
        !Catalogue::TryFilter(br, QStringLiteral("GUID = '") + guid + QStringLiteral("'")))
        return false;
    const double sum = NzDouble(br->Field(QStringLiteral("SumA")));
    const QDate date = NzDate(br->Field(QStringLiteral("DateD")), Date);
    br->SetFilter(QString());
    const QString name = QStringLiteral("frmBRCopyByMonthes");
    const auto form = FormAccess::CreateFormAs<CopyByMonthsForm>(name);
    if (!form) {
        ShowWarning(FormAccess::Unavailable(name).Text);
        return false;
    }
    form->SetOrvoObjectUIO(op_);
    form->SetEntry(sum, LastOfMonth(date), date.day());
    form->Show(true);
    if (form->Cancelled())
        return false;
    return CopyEntryByMonths(guid, form->Choice());
}

bool OperationEditor::CopyEntryByMonths(const QString& guid, const CopyByMonthsChoice& choice) {
    const bool copied = EntryMonthCopy(op_).Run(guid, choice);
    // Even a copy stopped half-way has changed the entry and made months: they are shown,
    // and the operation waits to be saved or cancelled.
    markChanged();
    PaintEntries();
    return copied;
}

bool OperationEditor::DeleteEntries(const QStringList& guids) {
    if (guids.isEmpty() || !AskQuestion(QStringLiteral("Ar tikrai norite panaikinti?")))
        return false;
    for (const QString& guid : guids)
        op_->Methods(QStringLiteral("DeleteBR"), {Value(guid), Value(qint16(9))});
    markChanged();
    PaintEntries();
    return true;
}

bool OperationEditor::DeleteAllEntries() {
    if (!AskQuestion(QStringLiteral("Ar tikrai norite panaikinti?")))
        return false;
    op_->Methods(QStringLiteral("DeleteBR"), {Value(QString())});
    markChanged();
    PaintEntries();
    return true;
}

bool OperationEditor::ChangeDate(const QDate& date) {
    const QDate stored = NzDate(op_->Field(QStringLiteral("DateD")), QDate());
    if (date == stored)
        return true;
    if (!Catalogue::CheckDatesAgainstReferences(op_, date, Related))
        return false;
    op_->SetField(QStringLiteral("DateD"), Value(date));
    Date = date;
    markChanged();
    if (!Rows.isEmpty() && AskQuestion(QStringLiteral("Pakeisti įrašų datas į operacijos datą?"))) {
        if (const RecordsetPtr br = entries()) {
            for (br->MoveFirst(); !br->Eof(); br->MoveNext()) {
                br->SetField(QStringLiteral("DateD"), Value(date));
                br->Update();
            }
        }
        PaintEntries();
    }
    return true;
}

bool OperationEditor::deletedMeanwhile() const {
    const OrvoServicesPtr services = OrvoS();
    const OrvoObjectsServicePtr objects = services ? services->ObjectsService() : nullptr;
    return objects && !objects->GetObjectUIO(op_->OIDR());
}

bool OperationEditor::Write() {
    CommentCut = false;
    if (GroupRef.size() > 8)
        op_->SetField(QStringLiteral("BROperGroupID"), Value(GroupRef.mid(8).toInt()));
    if (Comment.size() > CommentLimit) {
        Comment = Comment.left(CommentLimit);
        CommentCut = true;
    }
    op_->SetField(QStringLiteral("DateD"), Value(Date));
    op_->SetField(QStringLiteral("Comment"), Value(Comment));
    op_->SetField(QStringLiteral("Serija"), Value(Serija));
    op_->SetField(QStringLiteral("Number"), Value(Number));
    op_->SetField(QStringLiteral("VATRegisterIndication"),
                  Value(qint16(VATVisible ? VATIndex : 0)));
    if (!IsNew())
        op_->SetField(QStringLiteral("LockGUID"), op_->Field(QStringLiteral("LockGUID")));
    op_->Methods(QStringLiteral("SaveAutoNumber"), {Value(Mask), Value(Number)});
    op_->Methods(QStringLiteral("CreateProtocol"), {});
    const ResultRecord saved = op_->Save();
    if (!saved.ok()) {
        // Someone else deleted the stored operation meanwhile: that is all there is to
        // say, and nothing is written back.
        if (!IsNew() && deletedMeanwhile()) {
            ShowError(QStringLiteral("Operacija panaikinta !"));
            return false;
        }
        ShowError(QStringLiteral("Įrašymas neatliktas !\n\n") + saved.Text);
        return false;
    }
    op_->SetPreview(DateParam(Date) + QStringLiteral(" ") + Number);
    if (const OrvoServicesPtr services = OrvoS())
        if (const OrvoDeskTopServicePtr desktop = services->DeskTopService()) {
            const QString group = groupId();
            desktop->RefreshObject(op_->OIDR(),
                                   group.isEmpty() ? QString() : QString(kGroupCode + group));
        }
    SetTitleAndCommands();
    LoadFields();
    LoadNumber();
    PaintEntries();
    ReadRelatedRows();
    Changed = false;
    const ValueResult contract = op_->Methods(QStringLiteral("CheckContractSums"), {});
    if (contract.Code == 4)
        ShowWarning(contract.Text);
    else if (contract.Code > 0 && contract.Code != 777)
        ShowError(contract.Text);
    return true;
}

void OperationEditor::Cancel() {
    Suspended = true;
    const QString shownGroup = GroupRef;
    op_->CancelUpdate();
    PaintEntries();
    const QString id = groupId();
    const QString storedGroup = id.isEmpty() ? QString() : kGroupCode + id;
    if (storedGroup != shownGroup) {
        SetTitleAndCommands();
        LoadGroup();
    }
    LoadFields();
    LoadNumber();
    ReadRelatedRows();
    Changed = false;
    Suspended = false;
}

bool OperationEditor::ShowRelatedFirst() const {
    return Related && Related->RecordCount() > 0 && Rows.isEmpty();
}

void OperationEditor::NewInGroup() {
    const Value group = op_->Field(QStringLiteral("BROperGroupID"));
    const QString foidr = NzString(op_->Field(QStringLiteral("FOIDR")));
    Suspended = true;
    op_->SetOIDR(QString());
    const ResultRecord read = op_->Read();
    if (!read.ok()) {
        ShowError(read.Text);
        Suspended = false;
        return;
    }
    op_->SetField(QStringLiteral("BROperGroupID"), group);
    // A blank record keeps only the kind of the document it will belong to.
    if (!foidr.isEmpty())
        op_->SetField(QStringLiteral("FOIDR"), Value(foidr.left(8)));
    Related.reset();
    SetTitleAndCommands();
    LoadFields();
    LoadNumber();
    PaintEntries();
    Changed = false;
    RunDefaultTemplate();
    Suspended = false;
}

bool OperationEditor::ConfirmClose() {
    if (!IsNew() && !Changed)
        return true;
    return AskQuestion(QStringLiteral("\nAr tikrai norite panaikinti?"));
}

void OperationEditor::RefreshAutoNumber() {
    if (!Mask.isEmpty() && IsNew())
        Number = op_->Methods(QStringLiteral("GetAutoNumber"), {}).Value.toString();
}

bool OperationEditor::PickGroup() {
    const OrvoServicesPtr services = OrvoS();
    const PickersPtr pickers = services ? services->PickersService() : nullptr;
    if (!pickers)
        return false;
    const QString answer =
        pickers->PickGroup(kGroupCode, QStringLiteral("Pažymėkite norimą grupę"));
    const QString reference = answer.section(QLatin1Char('_'), 0, 0);
    if (reference.size() < 9)
        return false;
    GroupRef = reference;
    GroupText = answer.section(QLatin1Char('_'), 1);
    if (!LoadGroup())
        return false;
    markChanged();
    return true;
}

void OperationEditor::PickComment() {
    const ValueResult answer = op_->Methods(QStringLiteral("GetCommentList"), {Value(Comment)});
    const QString text = answer.ok() ? answer.Value.toString() : QString();
    if (!text.trimmed().isEmpty()) {
        Comment = text;
        markChanged();
    }
}

void OperationEditor::Print() {
    const OrvoServicesPtr services = OrvoS();
    const OrvoShellServicePtr shell = services ? services->ShellService() : nullptr;
    if (!shell)
        return;
    const ValueResult r =
        shell->Methods(QStringLiteral("KontavoUIO_PrintBROper"), {Value(op_->OIDR())});
    if (!r.ok())
        ShowError(r.Text);
}

void OperationEditor::DebtsCoverConverting() {
    const OrvoServicesPtr services = OrvoS();
    const OrvoShellServicePtr shell = services ? services->ShellService() : nullptr;
    if (!shell)
        return;
    const ValueResult r =
        shell->Methods(QStringLiteral("KontavoUIO_BROper_Methods"),
                       {Value(QStringLiteral("ShowDebtsConvertingCover")), Value(op_->OIDR())});
    if (!r.ok())
        ShowError(r.Text);
    PaintEntries();
}

void OperationEditor::SetAutoNumberByHand() {
    if (op_->Methods(QStringLiteral("CheckAutoNumber"), {}).Value.toBool())
        markChanged();
}

void OperationEditor::ShowProtocol() {
    op_->Methods(QStringLiteral("ShowProtocol"), {});
}

} // namespace orvo
