#include "accounts/group_editor.h"

#include "accounts/group_navigator.h"
#include "accounts/group_object.h"
#include "core/null_readers.h"
#include "core/today.h"
#include "frame/catalogue_rights_forms.h"
#include "frame/forms.h"
#include "frame/messages.h"
#include "frame/orvo_desktop_service.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "frame/orvo_session_service.h"
#include "frame/pickers.h"

namespace orvo {

namespace {

const QString kGroupCode = QStringLiteral("O0201400");
const QString kTemplateCode = QStringLiteral("O0201600");
const QString kContractForm = QStringLiteral("O1000100");
const QString kPlainForm = QStringLiteral("O0201500");
constexpr int kNumByAccField = 5;

QString quoted(const QString& text) {
    return QStringLiteral("'") + text + QStringLiteral("'");
}

qint64 idOf(const Value& v) {
    return v.isNull() ? 0 : static_cast<qint64>(v.toDouble());
}

// The record number of a picked "OIDR_text" of the kind; 0 for anything else.
qint64 pickedId(const QString& picked, const QString& kind) {
    const QString oidr = picked.section(QLatin1Char('_'), 0, 0);
    if (!oidr.startsWith(kind) || oidr.size() <= kind.size())
        return 0;
    return oidr.mid(kind.size()).toLongLong();
}

PickersPtr pickers() {
    const OrvoServicesPtr s = OrvoS();
    return s ? s->PickersService() : nullptr;
}

} // namespace

GroupEditor::GroupEditor(OrvoObjectUIOPtr group) : object_(std::move(group)) {}

bool GroupEditor::IsNew() const {
    return !object_ || object_->OIDR().size() <= kGroupCode.size();
}

ResultRecord GroupEditor::Load() {
    if (!object_ || !object_->RsFields())
        return ResultRecord::Failure(1, QStringLiteral("Grupė neperskaityta."));
    rights_ = Catalogue::RightsFor(QStringLiteral("CBROperGroupRights"));
    general_ = NzLong(object_->Field(QStringLiteral("GroupFlag"))) != 0;
    Name = NzString(object_->Field(QStringLiteral("Name")));
    ParentGroupText.clear();
    const ValueResult parent = object_->Properties(QStringLiteral("Parent"), QString());
    if (parent.ok())
        if (const auto p = std::dynamic_pointer_cast<OrvoObjectUIO>(parent.Value.toObject()))
            ParentGroupText = NzString(p->Field(QStringLiteral("Name")));
    FormOID = NzString(object_->Field(QStringLiteral("FormOID"))).trimmed();
    if (FormOID.isEmpty())
        FormOID = kPlainForm;
    SerijaIndication = NzLong(object_->Field(QStringLiteral("SerijaIndication"))) != 0;
    Serija = NzString(object_->Field(QStringLiteral("Serija")));
    AccountCode = NzString(object_->Field(QStringLiteral("AccountCode")));
    Parameters = NzString(object_->Field(QStringLiteral("Parameters")));
    NumByAcc = HasNumByAcc(FormOID) &&
               Parameters.split(QLatin1Char('#')).value(kNumByAccField).trimmed().toInt() != 0;

    const Value from = object_->Field(QStringLiteral("ANDateFrom"));
    ANDateFrom = from.isNull() ? QDate(Today().year(), 1, 1) : from.toDate();
    ANMinimal = object_->Field(QStringLiteral("ANMinimal")).isNull()
                    ? 1
                    : NzLong(object_->Field(QStringLiteral("ANMinimal")));
    ANPrefix = NzString(object_->Field(QStringLiteral("ANPrefix")));
    ANTemplate = NzString(object_->Field(QStringLiteral("ANTemplate")));
    ANGroupBy = qBound(0, int(NzLong(object_->Field(QStringLiteral("ANGroupBy")))),
                       int(AutoNumberMask::GroupByTexts().size()) - 1);
    const Value cycle = object_->Field(QStringLiteral("ANCycle"));
    ANCycle = cycle.isNull()
                  ? 3
                  : qBound(0, int(NzLong(cycle)), int(AutoNumberMask::CycleTexts().size()) - 1);
    mask_ = AutoNumberMask(NzString(object_->Field(QStringLiteral("ANMask"))));

    BRTemplateID = idOf(object_->Field(QStringLiteral("BRTemplateID")));
    DefaultTemplateID = idOf(object_->Field(QStringLiteral("DefaultTemplateID")));
    TemplateGroupText = templateName(BRTemplateID);
    MainTemplateText = templateName(DefaultTemplateID);
    changed_ = false;
    return ResultRecord::Success();
}

QString GroupEditor::templateName(qint64 id) const {
    if (id <= 0)
        return QString();
    const OrvoObjectUIOPtr t = Catalogue::GetUIOByOIDR(kTemplateCode + QString::number(id));
    return t ? NzString(t->Field(QStringLiteral("Name"))) : QString();
}

QString GroupEditor::Title() const {
    if (general_)
        return IsNew() ? QStringLiteral(" Nauja bendra grupė") : QStringLiteral(" Bendra grupė");
    return IsNew() ? QStringLiteral(" Nauja finansinių operacijų grupė")
                   : QStringLiteral(" Finansinių operacijų grupė");
}

bool GroupEditor::CanWrite() const {
    return IsNew() ? rights_.Create != 0 : rights_.Edit != 0;
}

QString GroupEditor::Example() const {
    QString userPref;
    if (const OrvoServicesPtr s = OrvoS())
        if (const OrvoSessionServicePtr session = s->SessionService())
            userPref = session->CurrentUser().UserPref;
    return mask_.Example(ANPrefix, ANTemplate, qMax<qint32>(ANMinimal, 1), userPref, Today());
}

QVector<GroupEditor::FormType> GroupEditor::FormTypes() const {
    QVector<FormType> out;
    const ValueResult r = object_->Properties(QStringLiteral("FormTypes"), QString());
    const RecordsetPtr rs = r.ok() ? r.Value.toRecordset() : nullptr;
    if (!rs)
        return out;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
        out.append({NzString(rs->Field(QStringLiteral("OID"))).trimmed(),
                    NzString(rs->Field(QStringLiteral("Name")))});
    return out;
}

bool GroupEditor::HasAutoNumber(const QString& formOID) {
    static const QStringList numbered = {kPlainForm,
                                         QStringLiteral("O0201501"),
                                         QStringLiteral("O0201502"),
                                         QStringLiteral("O0201506"),
                                         QStringLiteral("O0202000"),
                                         kContractForm};
    return numbered.contains(formOID.trimmed());
}

QStringList GroupEditor::Tabs() const {
    if (general_)
        return {};
    QStringList tabs{QStringLiteral("Templates")};
    if (HasAutoNumber(FormOID))
        tabs << QStringLiteral("Autonumber");
    tabs << QStringLiteral("DebtSettings");
    return tabs;
}

QString GroupEditor::TabCaption(const QString& key) {
    if (key == QLatin1String("Templates"))
        return QStringLiteral("Operacijų šablonai");
    if (key == QLatin1String("Autonumber"))
        return QStringLiteral("Auto-numeris");
    if (key == QLatin1String("DebtSettings"))
        return QStringLiteral("Skolų atpažinimo nustatymas");
    return key;
}

bool GroupEditor::HasNumByAcc(const QString& formOID) {
    return formOID == QLatin1String("O0201501") || formOID == QLatin1String("O0201502");
}

QString GroupEditor::ParametersFormFor(const QString& formOID) {
    if (formOID == kContractForm)
        return QStringLiteral("frmDocumentParameters");
    if (HasNumByAcc(formOID))
        return QStringLiteral("frmTransferParameters");
    if (formOID == QLatin1String("O0201503") || formOID == QLatin1String("O0201504"))
        return QStringLiteral("frmCashPaymentParameters");
    if (formOID == QLatin1String("O0201505"))
        return QStringLiteral("frmAdvanceReportParameters");
    return QString();
}

bool GroupEditor::PickTemplateGroup() {
    const PickersPtr p = pickers();
    if (!p)
        return false;
    const QString picked = p->PickGroup(kTemplateCode, QStringLiteral("Pažymėkite norimą grupę"));
    const qint64 id = pickedId(picked, kTemplateCode);
    if (id <= 0)
        return false;
    BRTemplateID = id;
    TemplateGroupText = picked.section(QLatin1Char('_'), 1);
    changed_ = true;
    return true;
}

bool GroupEditor::PickMainTemplate() {
    const PickersPtr p = pickers();
    if (!p)
        return false;
    // Only templates, not their groups, can be the main template.
    const QString picked = p->PickObject(kTemplateCode, QStringLiteral("Pasirinkite šabloną..."),
                                         QString(), QStringLiteral("GroupFlag = 0"));
    const qint64 id = pickedId(picked, kTemplateCode);
    if (id <= 0)
        return false;
    DefaultTemplateID = id;
    MainTemplateText = picked.section(QLatin1Char('_'), 1);
    changed_ = true;
    return true;
}

bool GroupEditor::SetAsMain(const QString& nodeKey) {
    if (!nodeKey.startsWith(QLatin1Char('T')))
        return false;
    const qint64 id = nodeKey.mid(1).toLongLong();
    if (id <= 0)
        return false;
    const OrvoObjectUIOPtr t = Catalogue::GetUIOByOIDR(kTemplateCode + QString::number(id));
    if (t && NzLong(t->Field(QStringLiteral("GroupFlag"))) != 0)
        return false;
    DefaultTemplateID = id;
    MainTemplateText = t ? NzString(t->Field(QStringLiteral("Name"))) : QString();
    changed_ = true;
    return true;
}

void GroupEditor::ClearTemplate() {
    if (BRTemplateID != 0 || !TemplateGroupText.isEmpty())
        changed_ = true;
    BRTemplateID = 0;
    TemplateGroupText.clear();
}

void GroupEditor::ClearMainTemplate() {
    if (DefaultTemplateID != 0 || !MainTemplateText.isEmpty())
        changed_ = true;
    DefaultTemplateID = 0;
    MainTemplateText.clear();
}

ValueResult GroupEditor::FillTemplates(const TreeControlPtr& tree) {
    putFields();
    return object_->Methods(QStringLiteral("FillTemplatesTrw"),
                            {Value(std::static_pointer_cast<ObjectBase>(tree))});
}

RecordsetPtr GroupEditor::AccountSettings() {
    const ValueResult r =
        object_->Properties(QStringLiteral("AccountSettings"), quoted(AccountCode.trimmed()));
    return r.ok() ? r.Value.toRecordset() : nullptr;
}

bool GroupEditor::runFullSum(const QString& question, const QString& dateText) {
    if (IsNew()) {
        ShowWarning(QStringLiteral("Grupė dar neįrašyta: pirmiau ją įrašykite."));
        return false;
    }
    if (!AskQuestion(question))
        return false;
    const BusinessObjectPtr bo = object_->BO();
    if (!bo)
        return false;
    const BOResult r = bo->Call(QStringLiteral("DO0201400_CreateFullSum"),
                                QString::number(idOf(object_->Field(QStringLiteral("ID")))) +
                                    QStringLiteral(",") + quoted(dateText));
    if (!r.ok()) {
        ShowWarning(r.Text);
        return false;
    }
    ShowInformation(QStringLiteral("Atlikta!"));
    return true;
}

bool GroupEditor::CreateFullSum(const QDate& date) {
    return runFullSum(QStringLiteral("Ar tikrai norite apskaičiuoti skolas?"),
                      date.toString(QStringLiteral("yyyy.MM.dd")));
}

bool GroupEditor::ClearFullSum() {
    return runFullSum(QStringLiteral("Ar tikrai norite panaikinti apskaičiuotas skolas?"),
                      QString());
}

bool GroupEditor::EditParameters() {
    const QString name = ParametersFormFor(FormOID);
    if (name.isEmpty())
        return false;
    const OrvoServicesPtr s = OrvoS();
    const FormsPtr forms = s ? s->FormsService() : nullptr;
    const OrvoFormPtr form = forms ? forms->CreateForm(name) : nullptr;
    if (!form) {
        ShowError(UI0201400::NoWindowText(name));
        return false;
    }
    // The window reads and writes the group's Parameters in the record.
    putFields();
    form->SetBoolModalForm(true);
    form->SetOrvoObjectUIO(object_);
    form->Show(true);
    const QString written = NzString(object_->Field(QStringLiteral("Parameters")));
    if (written != parametersToWrite()) {
        Parameters = written;
        if (HasNumByAcc(FormOID))
            NumByAcc =
                Parameters.split(QLatin1Char('#')).value(kNumByAccField).trimmed().toInt() != 0;
        changed_ = true;
    }
    return true;
}

QString GroupEditor::parametersToWrite() const {
    if (!HasNumByAcc(FormOID))
        return Parameters;
    QStringList fields = Parameters.split(QLatin1Char('#'));
    while (fields.size() <= kNumByAccField)
        fields << QString();
    fields[kNumByAccField] = NumByAcc ? QStringLiteral("1") : QStringLiteral("0");
    return fields.join(QLatin1Char('#'));
}

void GroupEditor::putFields() {
    object_->SetField(QStringLiteral("Name"), Name.trimmed());
    if (general_)
        return;
    object_->SetField(QStringLiteral("AccountCode"), AccountCode.trimmed());
    object_->SetField(QStringLiteral("BRTemplateID"),
                      BRTemplateID > 0 ? Value(double(BRTemplateID)) : Value(0.0));
    object_->SetField(QStringLiteral("SerijaIndication"), Value(qint16(SerijaIndication ? 1 : 0)));
    object_->SetField(QStringLiteral("Serija"), Serija.trimmed());
    object_->SetField(QStringLiteral("FormOID"), FormOID);
    object_->SetField(QStringLiteral("Parameters"), parametersToWrite());
    object_->SetField(QStringLiteral("DefaultTemplateID"),
                      DefaultTemplateID > 0 ? Value(double(DefaultTemplateID)) : Value(0.0));
    object_->SetField(QStringLiteral("ANDateFrom"), Value(ANDateFrom));
    object_->SetField(QStringLiteral("ANMinimal"), Value(qint32(ANMinimal)));
    object_->SetField(QStringLiteral("ANPrefix"), ANPrefix);
    object_->SetField(QStringLiteral("ANTemplate"), ANTemplate);
    object_->SetField(QStringLiteral("ANGroupBy"), Value(qint32(ANGroupBy)));
    object_->SetField(QStringLiteral("ANCycle"), Value(qint32(ANCycle)));
    object_->SetField(QStringLiteral("ANMask"), mask_.Text());
}

bool GroupEditor::deletedMeanwhile() const {
    if (object_->OIDR().size() < 9)
        return false;
    const OrvoServicesPtr s = OrvoS();
    const OrvoObjectsServicePtr objects = s ? s->ObjectsService() : nullptr;
    return objects && !objects->GetObjectUIO(object_->OIDR());
}

ResultRecord GroupEditor::Write() {
    putFields();
    if (!general_ && FormOID == kContractForm) {
        const auto* group = dynamic_cast<const UIO0201400*>(object_.get());
        if (!group || group->TemplateGroupID() <= 0) {
            const QString text = QStringLiteral("Nenurodyti šablonai !");
            ShowWarning(text);
            return ResultRecord::Failure(777, text);
        }
    }
    const ResultRecord r = object_->Save();
    if (!r.ok()) {
        // A stored group that someone else deleted meanwhile: that is all there is to say.
        if (deletedMeanwhile()) {
            ShowError(QStringLiteral("Grupė panaikinta!"));
            return r;
        }
        ShowError(r.Text + QStringLiteral("\n") + QStringLiteral("Įrašymas neatliktas !"));
        return r;
    }
    changed_ = false;
    if (const OrvoServicesPtr s = OrvoS())
        if (const OrvoDeskTopServicePtr desktop = s->DeskTopService()) {
            const qint64 parent = idOf(object_->Field(QStringLiteral("ParentID")));
            desktop->RefreshObject(object_->OIDR(),
                                   parent > 0 ? kGroupCode + QString::number(parent) : QString());
        }
    return r;
}

bool GroupEditor::CanClose() const {
    if (!changed_)
        return true;
    return AskQuestion(QStringLiteral("Uždaryti be išsaugojimo?"));
}

} // namespace orvo
