#include "accounts/account_plan_editor.h"

#include "core/recordset.h"
#include "frame/messages.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"

namespace orvo {

namespace {

const QString kAccountCode = QStringLiteral("O0200401");
const QString kAppTitle = QStringLiteral("Orvo Apskaita");

OrvoObjectUIOPtr objectOf(const ValueResult& r) {
    if (r.Code != 0)
        return nullptr;
    return std::dynamic_pointer_cast<OrvoObjectUIO>(r.Value.toObject());
}

QString textOf(const OrvoObjectUIOPtr& o, const char* field) {
    return o ? o->Field(QString::fromLatin1(field)).toString() : QString();
}

bool emptyId(const Value& v) {
    return v.isNull() || v.toString().trimmed().isEmpty() || v.toDouble() == 0;
}

} // namespace

AccountPlanEditor::AccountPlanEditor(OrvoObjectUIOPtr object, bool showNewAccount)
    : object_(std::move(object)), showNewAccount_(showNewAccount) {}

bool AccountPlanEditor::IsNew() const {
    return !object_ || object_->OIDR().size() <= kAccountCode.size();
}

qint64 AccountPlanEditor::parentId() const {
    const Value v = object_ ? object_->Field(QStringLiteral("ParentID")) : Value();
    return emptyId(v) ? 0 : static_cast<qint64>(v.toDouble());
}

ResultRecord AccountPlanEditor::Load() {
    if (!object_ || !object_->RsFields())
        return ResultRecord::Failure(1, QStringLiteral("Sąskaitos įrašas neperskaitytas."));
    loading_ = true;
    parent_.reset();
    class_.reset();
    if (parentId() == 0) {
        kind_ = RecordKind::Class;
        class_ = object_;
    } else {
        parent_ = objectOf(object_->Properties(QStringLiteral("Parent"), QString()));
        class_ = objectOf(object_->Properties(QStringLiteral("Class"), QString()));
        const bool subaccount = parent_ && !emptyId(parent_->Field(QStringLiteral("ParentID")));
        kind_ = subaccount ? RecordKind::Subaccount : RecordKind::Account;
    }
    if (captionKey_.isEmpty() || storedKey_.isEmpty()) {
        storedKey_ = IsNew() ? QString() : object_->OIDR();
        captionKey_ = IsNew() ? QStringLiteral("N") + object_->OID() : storedKey_;
    }

    ClassAccount = textOf(class_, "Account");
    ClassName = textOf(class_, "Name");
    ClassType = textOf(class_, "Type");
    Account.clear();
    Name.clear();
    Type.clear();
    ParentLabel.clear();
    if (!IsClass()) {
        Account = textOf(object_, "Account");
        Name = textOf(object_, "Name");
        Type = textOf(object_, "Type");
        if (Account.isEmpty())
            Account = textOf(parent_, "Account");
        if (Type.isEmpty())
            Type = ClassType;
        if (kind_ == RecordKind::Subaccount)
            ParentLabel = textOf(parent_, "Account") + QLatin1Char(' ') + textOf(parent_, "Name");
    }
    NewAccountText.clear();
    if (NewAccountRowVisible()) {
        const ValueResult r = object_->Properties(QStringLiteral("NewAccount"), QString());
        if (r.Code == 0)
            NewAccountText = r.Value.toString();
    }
    const ResultRecord roles = loadRoles();
    loading_ = false;
    changed_ = false;
    return roles;
}

QString AccountPlanEditor::PanelTitle() const {
    switch (kind_) {
    case RecordKind::Class:
        return IsNew() ? QStringLiteral("Nauja klasė") : QStringLiteral("Klasė");
    case RecordKind::Account:
        return IsNew() ? QStringLiteral("Nauja sąskaita") : QStringLiteral("Sąskaita");
    case RecordKind::Subaccount:
        return IsNew() ? QStringLiteral("Nauja subsąskaita") : QStringLiteral("Subsąskaita");
    }
    return QString();
}

QString AccountPlanEditor::ClassPanelTitle() const {
    return IsClass() ? PanelTitle() : QStringLiteral("Klasė");
}

bool AccountPlanEditor::NewAccountRowVisible() const {
    return !IsNew() && showNewAccount_ && object_ &&
           object_->Field(QStringLiteral("GroupFlag")).toInt32() == 0;
}

ResultRecord AccountPlanEditor::loadRoles() {
    Roles.clear();
    const ValueResult props = object_->Properties(QStringLiteral("BRAProperties"), QString());
    const ValueResult settings = object_->Properties(QStringLiteral("BRASettings"), QString());
    const RecordsetPtr accounts = props.Code == 0 ? props.Value.toRecordset() : nullptr;
    const RecordsetPtr roles = settings.Code == 0 ? settings.Value.toRecordset() : nullptr;
    if (!roles)
        return settings.Code != 0 ? ResultRecord::Failure(settings.Code, settings.Text)
                                  : ResultRecord::Success();
    const QString mine = IsClass() ? ClassAccount : textOf(object_, "Account");
    for (roles->MoveFirst(); !roles->Eof(); roles->MoveNext()) {
        RoleItem item;
        item.Key = QStringLiteral("X") + roles->Field(QStringLiteral("Id")).toString();
        item.Name = roles->Field(QStringLiteral("Name")).toString();
        item.Code = roles->Field(QStringLiteral("Code")).toString();
        if (accounts) {
            for (int i = 0; i < accounts->RecordCount(); ++i) {
                const int codeField = accounts->FieldIndex(QStringLiteral("Code"));
                const int accountField = accounts->FieldIndex(QStringLiteral("Account"));
                if (accounts->ValueAt(i, codeField).toString() != item.Code)
                    continue;
                const QString account = accounts->ValueAt(i, accountField).toString();
                item.Accounts += account + QLatin1Char(';');
                if (!mine.isEmpty() && account == mine)
                    item.Checked = true;
            }
        }
        Roles.append(item);
    }
    // One role per account: should the books say otherwise, the first one stands.
    bool seen = false;
    for (RoleItem& r : Roles) {
        if (r.Checked && seen)
            r.Checked = false;
        seen = seen || r.Checked;
    }
    return ResultRecord::Success();
}

void AccountPlanEditor::SetRoleChecked(int index, bool checked) {
    if (index < 0 || index >= Roles.size())
        return;
    if (checked)
        for (int i = 0; i < Roles.size(); ++i)
            Roles[i].Checked = false;
    Roles[index].Checked = checked;
    MarkChanged();
}

qint64 AccountPlanEditor::CheckedRoleId() const {
    for (const RoleItem& r : Roles)
        if (r.Checked)
            return r.Key.mid(1).toLongLong();
    return 0;
}

bool AccountPlanEditor::AcceptsNumberKey(int key) {
    return (key >= '0' && key <= '9') || key == 8;
}

QString AccountPlanEditor::PrefixedAccount(const QString& text, bool* corrected) const {
    const QString prefix = textOf(parent_, "Account");
    const bool wrong = !IsClass() && !text.startsWith(prefix);
    if (corrected)
        *corrected = wrong;
    return wrong ? prefix : text;
}

QString AccountPlanEditor::TypeText(const QString& typed) {
    const QString upper = typed.toUpper();
    return QStringLiteral("DK").contains(upper) ? upper : QStringLiteral("D");
}

bool AccountPlanEditor::RefusesClassNumber(const QString& text) {
    return text == QLatin1String("0") || text == QLatin1String("00");
}

void AccountPlanEditor::MarkChanged() {
    if (!loading_)
        changed_ = true;
}

bool AccountPlanEditor::check(const QString& text, const QString& message, const QString& control,
                              SaveOutcome& outcome) const {
    if (!text.trimmed().isEmpty())
        return true;
    // These boxes carry the program's own name whatever the session's title.
    if (const OrvoServicesPtr s = OrvoS(); s && s->MessagesService())
        s->MessagesService()->Show(MessageKind::Error, message, kAppTitle);
    outcome.FocusControl = control;
    return false;
}

AccountPlanEditor::SaveOutcome AccountPlanEditor::Save() {
    SaveOutcome outcome;
    const QString noNumber = QStringLiteral("Nenurodytas sąskaitos numeris");
    if (IsClass()) {
        if (RefusesClassNumber(ClassAccount)) {
            ClassAccount.clear();
            outcome.ClearClassNumber = true;
            return outcome;
        }
        if (!check(ClassAccount, noNumber, QStringLiteral("txtAccountClass"), outcome) ||
            !check(ClassName, QStringLiteral("Nenurodytas sąskaitos pavadinimas"),
                   QStringLiteral("txtNameClass"), outcome) ||
            !check(ClassType, QStringLiteral("Nenurodytas sąskaitos tipas"),
                   QStringLiteral("txtTypeClass"), outcome))
            return outcome;
        object_->SetField(QStringLiteral("Name"), ClassName.trimmed());
        object_->SetField(QStringLiteral("Account"), ClassAccount.trimmed());
        object_->SetField(QStringLiteral("Type"), ClassType.trimmed());
    } else {
        // The heart of the numbering: a child's number is its parent's and more.
        const QString number = Account.trimmed();
        const QString parentNumber = textOf(parent_, "Account");
        if (!check(number.size() > parentNumber.size() ? number : QString(), noNumber,
                   QStringLiteral("txtAccount"), outcome) ||
            !check(Name, QStringLiteral("Nenurodytas sąskaitos pavadinimas"),
                   QStringLiteral("txtName"), outcome) ||
            !check(Type, QStringLiteral("Nenurodytas sąskaitos tipas"), QStringLiteral("txtType"),
                   outcome))
            return outcome;
        object_->SetField(QStringLiteral("Name"), Name.trimmed());
        object_->SetField(QStringLiteral("Account"), number);
        object_->SetField(QStringLiteral("Type"), Type.trimmed());
        object_->SetField(QStringLiteral("ParentID"), Value(double(parentId())));
        object_->SetField(QStringLiteral("BRAPropertyID"), Value(double(CheckedRoleId())));
    }

    const ResultRecord r = object_->Save();
    if (!r.ok()) {
        QString text;
        switch (r.Code) {
        case 1:
            text = QStringLiteral("Aukštesnio lygio sąskaita nebeegzistuoja!");
            outcome.RefreshTree = true;
            break;
        case 32:
            text = QStringLiteral("Redaguojama sąskaita nebeegzistuoja!");
            outcome.RefreshTree = true;
            break;
        case 547:
            text = QStringLiteral("BRAProperty nebeegzistuoja!");
            break;
        case 3604:
            text = QStringLiteral("Tokia sąskaita jau egzistuoja!");
            break;
        default:
            text = r.Text;
        }
        ShowError(QStringLiteral("Klaida!\n\n") + text);
        changed_ = true;
        return outcome;
    }
    outcome.Saved = true;
    storedKey_ = object_->OIDR();
    captionKey_ = storedKey_;
    loading_ = true;
    loadRoles();
    loading_ = false;
    changed_ = false;
    return outcome;
}

ResultRecord AccountPlanEditor::Undo() {
    const Value keptParent = object_->Field(QStringLiteral("ParentID"));
    const bool fresh = IsNew();
    const ResultRecord r = object_->Read();
    if (!r.ok())
        return r;
    if (fresh && !keptParent.isNull())
        object_->SetField(QStringLiteral("ParentID"), keptParent);
    return Load();
}

ResultRecord AccountPlanEditor::NewSameLevel() {
    const Value keptParent = object_->Field(QStringLiteral("ParentID"));
    object_->SetOIDR(QString());
    const ResultRecord r = object_->Read();
    if (!r.ok())
        return r;
    if (!keptParent.isNull())
        object_->SetField(QStringLiteral("ParentID"), keptParent);
    storedKey_.clear();
    captionKey_ = QStringLiteral("N") + object_->OID();
    return Load();
}

bool AccountPlanEditor::TakeNewAccount(const QString& picked) {
    const QString oidr = picked.section(QLatin1Char('_'), 0, 0);
    if (oidr.size() <= kAccountCode.size() || !oidr.startsWith(kAccountCode))
        return false;
    const qint64 id = oidr.mid(kAccountCode.size()).toLongLong();
    if (id <= 0)
        return false;
    object_->SetField(QStringLiteral("NewID"), Value(double(id)));
    const ValueResult r = object_->Properties(QStringLiteral("NewAccount"), QString());
    NewAccountText = r.Code == 0 ? r.Value.toString() : QString();
    MarkChanged();
    return true;
}

bool AccountPlanEditor::AcceptsDrop(const QString& draggedKey, int draggedGroupFlag) const {
    return NewAccountRowVisible() && draggedKey.left(8) == kAccountCode &&
           draggedKey.size() > kAccountCode.size() && draggedGroupFlag == 0;
}

void AccountPlanEditor::ClearNewAccount() {
    if (object_->Field(QStringLiteral("NewID")).isNull())
        return;
    object_->SetField(QStringLiteral("NewID"), Value());
    NewAccountText.clear();
    MarkChanged();
}

QString AccountPlanEditor::CloseQuestion(const QString& caption) {
    return caption + QStringLiteral("\n\nUždaryti be išsaugojimo?");
}

} // namespace orvo
