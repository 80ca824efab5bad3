#include "accounts/group_navigator.h"

#include "accounts/group_object.h"
#include "core/null_readers.h"
#include "frame/catalogue_rights_forms.h"
#include "frame/forms.h"
#include "frame/messages.h"
#include "frame/orvo_desktop_service.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "frame/orvo_shell_service.h"

#include <QDate>

namespace orvo {

namespace {

const QString kGroup = QStringLiteral("O0201400");
const QString kOperation = QStringLiteral("O0201500");
const QString kGroupForm = QStringLiteral("frmBROperGroup");
const QString kGroupRights = QStringLiteral("CBROperGroupRights");
const QString kOperationRights = QStringLiteral("CBROperRights");

const QString kDesktop = QStringLiteral("Padėti ant darbo stalo");
const QString kNewGeneralGroup = QStringLiteral("Naują bendra grupė");
const QString kNewGroup = QStringLiteral("Naują operacijų grupė");
const QString kBankExport = QStringLiteral("Eksportas į banką");
const QString kBankImport = QStringLiteral("Banko įrašų apie pinigų gavimą importas");
const QString kDebtsCover = QStringLiteral("Skolų dengimas");
const QString kRevaluation = QStringLiteral("Valiutos perskaičiavimas");
const QString kExchange = QStringLiteral("Valiutos pirkimas/pardavimas");
const QString kFuture = QStringLiteral("Būsimų laikotarpių operacijos");
const QString kLocks = QStringLiteral("Sąskaitų blokavimas");
const QString kBalances = QStringLiteral("Sąskaitų likučiai");
const QString kViewSettings = QStringLiteral("Peržiūros nustatymai");
const QString kCoverAfterConversion = QStringLiteral("Skolų dengimas po konvertavimo");
const QString kDelete = QStringLiteral("Panaikinti");
const QString kSelect = QStringLiteral("Atrinkti");
const QString kSearch = QStringLiteral("Paieška");

// The "new" captions of each form type, in menu order.
QStringList newCaptionsOf(const QString& formOID) {
    if (formOID == QLatin1String("O0201501"))
        return {QStringLiteral("Naujas mokėjimo nurodymas"), kBankExport};
    if (formOID == QLatin1String("O0201502"))
        return {QStringLiteral("Naujas pinigų gavimas")};
    if (formOID == QLatin1String("O0201503"))
        return {QStringLiteral("Naujas kasos išlaidų orderis")};
    if (formOID == QLatin1String("O0201504"))
        return {QStringLiteral("Naujas kasos pajamų orderis")};
    if (formOID == QLatin1String("O0201505"))
        return {QStringLiteral("Nauja avanso apyskaita")};
    if (formOID == QLatin1String("O1000100") || formOID == QLatin1String("O0201506"))
        return {};
    return {QStringLiteral("Nauja operacija")};
}

bool isNewOperationCaption(const QString& caption) {
    for (const char* kind :
         {"O0201500", "O0201501", "O0201502", "O0201503", "O0201504", "O0201505"})
        if (newCaptionsOf(QString::fromLatin1(kind)).contains(caption))
            return true;
    return false;
}

// The group number in a group's OID; 0 for the root or another code.
qint64 groupNumber(const QString& oid) {
    return oid.startsWith(kGroup) && oid.size() > 8 ? oid.mid(8).toLongLong() : 0;
}

OrvoObjectsServicePtr objectsService() {
    const OrvoServicesPtr services = OrvoS();
    return services ? services->ObjectsService() : nullptr;
}

ClickResult showing(const OrvoFormPtr& form) {
    ClickResult result;
    result.Action = ClickResult::ShowForm;
    result.Payload = Value(std::static_pointer_cast<ObjectBase>(form));
    return result;
}

OrvoFormPtr formByName(const QString& name) {
    const OrvoServicesPtr services = OrvoS();
    const FormsPtr forms = services ? services->FormsService() : nullptr;
    return forms ? forms->CreateForm(name) : nullptr;
}

} // namespace

UI0201400::UI0201400()
    : OrvoObjectUIBase(kGroup, QStringLiteral("UI0201400"),
                       QStringLiteral("Finansinių operacijų apskaita")) {
    OrvoObjectUICore& core = Core();
    core.AddIcon(kGroup, QStringLiteral("C0201400"));
    core.AddIcon(QStringLiteral("C"), QStringLiteral("C0201500"));
    core.AddIcon(kOperation, QStringLiteral("C0201500"));
    core.AddIcon(QStringLiteral("O0300100"), QStringLiteral("C0201500"));
    core.AddIcon(QStringLiteral("O0202000"), QStringLiteral("C0201500"));
    for (const char* kind :
         {"O0201501", "O0201502", "O0201503", "O0201504", "O0201505", "O0201506"}) {
        const QString k = QString::fromLatin1(kind);
        core.AddIcon(k, QStringLiteral("C") + k.mid(1));
    }
}

QString UI0201400::FormForCaption(const QString& caption) {
    static const QHash<QString, QString> forms = {
        {kDebtsCover, QStringLiteral("frmDebtsCover")},
        {kRevaluation, QStringLiteral("frmCurrencyInfluence")},
        {kExchange, QStringLiteral("frmCurrencyExchange")},
        {kFuture, QStringLiteral("frmCoversInFuture")},
        {kLocks, QStringLiteral("frmBRLock")},
        {kBankImport, QStringLiteral("frmImportFromBank")},
    };
    return forms.value(caption);
}

QString UI0201400::NoWindowText(const QString& formName) {
    return QStringLiteral("Langas „%1“ neprieinamas: veiksmo atlikti negalima.").arg(formName);
}

OrvoObjectUIOPtr UI0201400::group(const QString& oid) {
    if (groupNumber(oid) <= 0)
        return nullptr;
    return GetOrvoObject(oid);
}

MenuItems UI0201400::GetMenu(const QString& oid, const QString& oType, const QString& groupId) {
    Q_UNUSED(oType);
    MenuItems menu;
    auto add = [&](const QString& caption) { menu.append({caption, oid, false}); };
    const RightsRecord groups = Catalogue::RightsFor(kGroupRights);
    const qint64 number = groupNumber(oid);
    if (number <= 0) {
        // The branch's own node: the groups at the top and the book-wide work.
        if (groups.Create) {
            add(kNewGeneralGroup);
            add(kNewGroup);
        }
        if (Catalogue::RightsFor(QStringLiteral("CAllAccLock")).Read)
            add(kLocks);
        add(kBalances);
        add(kViewSettings);
        add(kCoverAfterConversion);
        add(kSelect);
        add(kSearch);
        return menu;
    }
    const OrvoObjectUIOPtr g = group(oid);
    if (!g) {
        add(kSelect);
        add(kSearch);
        return menu;
    }
    const QString number_ = groupId.isEmpty() ? QString::number(number) : groupId;
    const RightsRecord operations = Catalogue::RightsFor(kOperationRights + number_);
    if (groups.Read)
        add(kDesktop);
    if (NzLong(g->Field(QStringLiteral("GroupFlag"))) != 0) {
        if (groups.Create) {
            add(kNewGeneralGroup);
            add(kNewGroup);
        }
    } else {
        const QString formOID = NzString(g->Field(QStringLiteral("FormOID")));
        if (operations.Create) {
            for (const QString& caption : newCaptionsOf(formOID))
                add(caption);
            if ((formOID == QLatin1String("O0201501") || formOID == QLatin1String("O0201502")) &&
                Catalogue::RightsFor(QStringLiteral("CImportFromBank")).Create)
                add(kBankImport);
            add(kDebtsCover);
            add(kRevaluation);
            add(kExchange);
            if (Catalogue::RightsFor(QStringLiteral("CoversInFuture")).Create)
                add(kFuture);
        }
    }
    if (groups.Delete)
        add(kDelete);
    add(kSelect);
    add(kSearch);
    return menu;
}

ClickResult UI0201400::ClickMenu(const QString& oid, const QString& parameters,
                                 const QString& caption, const QString& key) {
    ClickResult result;
    if (caption == kNewGeneralGroup || caption == kNewGroup)
        return newGroup(oid, caption == kNewGeneralGroup);
    if (isNewOperationCaption(caption) || caption == kSelect || caption == kSearch) {
        // The operations navigator knows the new documents, the selection and the
        // search; it reads this group through the group's data object.
        const OrvoObjectsServicePtr objects = objectsService();
        const OrvoObjectUIPtr operations = objects ? objects->GetObjectUI(kOperation) : nullptr;
        if (!operations) {
            ShowError(NoWindowText(QStringLiteral("frmBROper")));
            return result;
        }
        return operations->ClickMenu(oid, parameters, caption, key);
    }
    if (caption == kDesktop) {
        AddToDeskTopOrvoObject(oid);
        return result;
    }
    if (caption == kDelete) {
        if (!AskQuestion(QStringLiteral("Ar tikrai norite panaikinti?")))
            return result;
        if (DeleteOrvoObject(oid))
            ShowInformation(QStringLiteral("Grupė panaikinta!"));
        return result;
    }
    if (caption == kBalances) {
        const OrvoObjectsServicePtr objects = objectsService();
        if (objects)
            objects->Methods(
                QStringLiteral("ShowHelp"),
                {Value(kBalances), Value(QStringLiteral("help\\saskaitulikuciai.htm"))});
        return result;
    }
    if (caption == kViewSettings)
        return hostOperation(QStringLiteral("GetNewPeriod"), oid);
    if (caption == kCoverAfterConversion)
        return hostOperation(QStringLiteral("ShowDebtsConvertingCover"), oid);
    const QString formName = FormForCaption(caption);
    if (!formName.isEmpty())
        return openWindow(oid, formName);
    return result;
}

ClickResult UI0201400::newGroup(const QString& oid, bool general) {
    ClickResult result;
    const OrvoObjectUIOPtr object = GetOrvoObject(QString());
    if (!object)
        return result;
    const qint64 parent = groupNumber(oid);
    if (parent > 0)
        object->SetField(QStringLiteral("ParentID"), Value(double(parent)));
    object->SetField(QStringLiteral("GroupFlag"), Value(general ? 1 : 0));
    const OrvoFormPtr form = formByName(kGroupForm);
    if (!form) {
        ShowError(NoWindowText(kGroupForm));
        return result;
    }
    form->SetOrvoObjectUIO(object);
    return showing(form);
}

ClickResult UI0201400::openWindow(const QString& oid, const QString& formName) {
    ClickResult result;
    const OrvoFormPtr form = formByName(formName);
    if (!form) {
        ShowError(NoWindowText(formName));
        return result;
    }
    // The windows of a group work on a new operation of that group.
    const OrvoObjectsServicePtr objects = objectsService();
    const OrvoObjectUIOPtr operation = objects ? objects->GetObjectUIO(kOperation) : nullptr;
    if (operation && groupNumber(oid) > 0)
        operation->SetField(QStringLiteral("BROperGroupID"), Value(double(groupNumber(oid))));
    form->SetOrvoObjectUIO(operation);
    return showing(form);
}

ClickResult UI0201400::hostOperation(const QString& name, const QString& oid) {
    ClickResult result;
    const OrvoServicesPtr services = OrvoS();
    const OrvoShellServicePtr shell = services ? services->ShellService() : nullptr;
    const ValueResult r = shell ? shell->Methods(name, {Value(oid)})
                                : ValueResult::Failure(codes::Refused, QString());
    if (r.Code != 0)
        ShowError(QStringLiteral("Programa šio veiksmo („%1“) neatlieka.").arg(name));
    return result;
}

UI0201400::ListBound UI0201400::ParseListBound(const QString& text) {
    // A date, a position, or both as "date;position".
    ListBound bound;
    const QStringList parts = text.split(QLatin1Char(';'));
    for (const QString& part : parts) {
        const QString t = part.trimmed();
        if (QDate::fromString(t, QStringLiteral("yyyy.MM.dd")).isValid()) {
            bound.Date = t;
            continue;
        }
        bool ok = false;
        const int n = t.toInt(&ok);
        if (ok && n > 0)
            bound.Position = n;
    }
    return bound;
}

RecordsetPtr UI0201400::GetOrvoObjectList(const QString& oid, const QString& from,
                                          const QString& to) {
    const BusinessObjectPtr bo = BO();
    if (!bo)
        return nullptr;
    // The list is bounded by a period of dates and, for the tree's screens of rows, by
    // positions in the list; either may be missing.
    const ListBound first = ParseListBound(from);
    const ListBound last = ParseListBound(to);
    const BOResult r =
        bo->Call(QStringLiteral("DO0201400_GetGroupNodes"),
                 QStringLiteral("'%1','%2','%3',%4,%5")
                     .arg(oid.isEmpty() ? kGroup : oid,
                          first.Date.isEmpty() ? QStringLiteral("1990.01.01") : first.Date,
                          last.Date.isEmpty() ? QStringLiteral("9999.12.31") : last.Date)
                     .arg(first.Position)
                     .arg(last.Position));
    if (r.Code != 0) {
        ShowWarning(r.Text);
        return nullptr;
    }
    return r.Data.toRecordset();
}

bool UI0201400::DeleteOrvoObject(const QString& oid) {
    if (groupNumber(oid) <= 0 || !Catalogue::RightsFor(kGroupRights).Delete)
        return false;
    if (Core().DeleteOrvoObject(oid))
        return true;
    const ResultRecord refusal = Core().LastResult();
    if (!refusal.Text.isEmpty())
        ShowWarning(refusal.Text);
    return false;
}

bool UI0201400::AddToDeskTopOrvoObject(const QString& oid) {
    const OrvoObjectUIOPtr g = group(oid);
    if (!g)
        return false;
    const OrvoFormPtr form = formByName(kGroupForm);
    if (!form) {
        ShowError(NoWindowText(kGroupForm));
        return false;
    }
    form->SetOrvoObjectUIO(g);
    const OrvoServicesPtr services = OrvoS();
    if (const auto desktop = services ? services->DeskTopService() : nullptr)
        desktop->AddForm(form);
    return true;
}

bool UI0201400::DragOK(const QString& oid) {
    return groupNumber(oid) > 0 && Catalogue::RightsFor(kGroupRights).Edit;
}

bool UI0201400::DropOK(const QString& sourceOid, const QString& targetOid) {
    Q_UNUSED(sourceOid);
    Q_UNUSED(targetOid);
    return false;
}

} // namespace orvo
