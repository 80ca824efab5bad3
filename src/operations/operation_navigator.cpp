#include "operations/operation_navigator.h"

#include "core/null_readers.h"
#include "frame/catalogue_rights_forms.h"
#include "frame/forms.h"
#include "frame/messages.h"
#include "frame/orvo_desktop_service.h"
#include "frame/orvo_object_uio.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "frame/orvo_shell_service.h"

namespace orvo {

namespace {

const QString kOperation = QStringLiteral("O0201500");
const QString kPaymentOrder = QStringLiteral("O0201501");
const QString kContract = QStringLiteral("O1000100");
const QString kJournal = QStringLiteral("O0200500");
const QString kJournalGroup = QStringLiteral("O0200501");

const QString kDesktop = QStringLiteral("Padėti ant darbo stalo");
const QString kNewOperation = QStringLiteral("Nauja operacija");
const QString kBankExport = QStringLiteral("Eksportas į banką");
const QString kDelete = QStringLiteral("Panaikinti");
const QString kSelect = QStringLiteral("Atrinkti");
const QString kSearch = QStringLiteral("Paieška");

// The kinds with a "New" caption of their own, in the order of the table of kinds.
const QList<QPair<QString, QString>>& newCaptions() {
    static const QList<QPair<QString, QString>> list = {
        {QStringLiteral("O0201500"), QStringLiteral("Nauja operacija")},
        {QStringLiteral("O0201501"), QStringLiteral("Naujas mokėjimo nurodymas")},
        {QStringLiteral("O0201502"), QStringLiteral("Naujas pinigų gavimas")},
        {QStringLiteral("O0201503"), QStringLiteral("Naujas kasos išlaidų orderis")},
        {QStringLiteral("O0201504"), QStringLiteral("Naujas kasos pajamų orderis")},
        {QStringLiteral("O0201505"), QStringLiteral("Nauja avanso apyskaita")},
    };
    return list;
}

OrvoFormPtr formByName(const QString& name) {
    const OrvoServicesPtr services = OrvoS();
    const FormsPtr forms = services ? services->FormsService() : nullptr;
    return forms ? forms->CreateForm(name) : nullptr;
}

} // namespace

UI0201500::UI0201500(const QString& code)
    : OrvoObjectUIBase(kOperation, QStringLiteral("UI0201500"),
                       QStringLiteral("Finansinės operacijos")) {
    // Every kind is stored as an operation, so the core always asks DO0201500_ methods;
    // the navigator's OID keeps the kind it was made for.
    if (!code.isEmpty())
        SetOID(code);
    OrvoObjectUICore& core = Core();
    core.AddIcon(QStringLiteral("C"), QStringLiteral("C0201500"));
    core.AddIcon(QStringLiteral("O0201500"), QStringLiteral("C0201500"));
    core.AddIcon(QStringLiteral("O0300100"), QStringLiteral("C0201500"));
    core.AddIcon(QStringLiteral("O0202000"), QStringLiteral("C0201500"));
    for (const char* kind :
         {"O0201501", "O0201502", "O0201503", "O0201504", "O0201505", "O0201506"}) {
        const QString k = QString::fromLatin1(kind);
        core.AddIcon(k, QStringLiteral("C") + k.mid(1));
    }
    for (const char* journal : {"TJ", "RJ", "IJ", "PJ"})
        core.AddIcon(QString::fromLatin1(journal), QStringLiteral("C0200500J"));
}

std::shared_ptr<UI0201500> UI0201500::Create(const QString& code) {
    return std::make_shared<UI0201500>(code);
}

QString UI0201500::NewCaptionForKind(const QString& kind) {
    for (const auto& pair : newCaptions())
        if (pair.first == kind)
            return pair.second;
    return QString();
}

QString UI0201500::KindForNewCaption(const QString& caption) {
    for (const auto& pair : newCaptions())
        if (pair.second == caption)
            return pair.first;
    return QString();
}

QString UI0201500::NoFormText(const QString& formName) {
    return QStringLiteral("Langas „%1“ neprieinamas: veiksmo atlikti negalima.").arg(formName);
}

MenuItems UI0201500::GetMenu(const QString& oid, const QString& oType, const QString& groupId) {
    const RightsRecord rights = Catalogue::RightsFor(QStringLiteral("CBROperRights") + groupId);
    MenuItems menu;
    // The node of the list itself has no menu of its own.
    if (!(oid > OID()))
        return menu;
    auto add = [&](const QString& caption) { menu.append({caption, oid}); };
    if (rights.Read)
        add(kDesktop);
    if (oType == kPaymentOrder) {
        if (rights.Create)
            add(NewCaptionForKind(kPaymentOrder));
        if (rights.Create)
            add(kBankExport);
    } else if (!NewCaptionForKind(oType).isEmpty() && oType != kOperation) {
        if (rights.Create)
            add(NewCaptionForKind(oType));
    } else if (oType != kContract) {
        if (rights.Create)
            add(kNewOperation);
    }
    if (rights.Delete)
        add(kDelete);
    add(kSelect);
    add(kSearch);
    return menu;
}

ClickResult UI0201500::ClickMenu(const QString& oid, const QString& parameters,
                                 const QString& caption, const QString& key) {
    Q_UNUSED(key);
    ClickResult result;
    if (oid == OID())
        return result;
    if (caption == kSelect)
        return select(oid);
    if (caption == kSearch)
        return search();
    const QString newKind = KindForNewCaption(caption);
    if (!newKind.isEmpty())
        return newRecord(oid, parameters, newKind);
    if (caption == kDesktop) {
        AddToDeskTopOrvoObject(oid);
        return result;
    }
    if (caption == kBankExport)
        return bankExport();
    if (caption == kDelete) {
        if (AskQuestion(QStringLiteral("Ar tikrai norite panaikinti?")))
            DeleteOrvoObject(oid);
        return result;
    }
    OrvoObjectUIOPtr none;
    if (const OrvoFormPtr form = Catalogue::OpenOperationForm(oid, none)) {
        result.Action = ClickResult::ShowForm;
        result.Payload = Value(std::static_pointer_cast<ObjectBase>(form));
    }
    return result;
}

ClickResult UI0201500::newRecord(const QString& oid, const QString& parameters,
                                 const QString& kind) {
    ClickResult result;
    const OrvoServicesPtr services = OrvoS();
    const OrvoObjectsServicePtr objects = services ? services->ObjectsService() : nullptr;
    const OrvoObjectUIOPtr group = objects ? objects->GetObjectUIO(oid) : nullptr;
    if (!group) {
        ShowError(QStringLiteral("Grupė panaikinta!"));
        return result;
    }
    const OrvoObjectUIOPtr operation = GetOrvoObject(QString());
    if (!operation)
        return result;
    // The group's own Parameters are the editor's to read from the group; the new
    // operation starts in the group with the kind clicked.
    operation->SetField(QStringLiteral("BROperGroupID"),
                        group->Field(QStringLiteral("BROperGroupID")));
    operation->SetOType(kind);
    operation->SetField(QStringLiteral("OType"), kind);
    const QString formName = Catalogue::FormNameForKind(kind);
    const OrvoFormPtr form = Catalogue::NewFormForKind(kind);
    if (!form) {
        ShowError(NoFormText(formName));
        return result;
    }
    form->SetClickedParameters(parameters);
    form->SetOrvoObjectUIO(operation);
    result.Action = ClickResult::ShowForm;
    result.Payload = Value(std::static_pointer_cast<ObjectBase>(form));
    return result;
}

ClickResult UI0201500::select(const QString& oid) {
    // The list comes from the operations' own navigator, whichever node asked.
    return NarrowBySelection(oid, [&]() -> RecordsetPtr {
        const OrvoServicesPtr services = OrvoS();
        const OrvoObjectsServicePtr objects = services ? services->ObjectsService() : nullptr;
        const OrvoObjectUIPtr navigator = objects ? objects->GetObjectUI(kOperation) : nullptr;
        return navigator ? navigator->GetOrvoObjectList(oid, QString(), QString()) : nullptr;
    });
}

ClickResult UI0201500::search() {
    ClickResult result;
    const OrvoServicesPtr services = OrvoS();
    const OrvoObjectsServicePtr objects = services ? services->ObjectsService() : nullptr;
    const OrvoObjectUIPtr journals = objects ? objects->GetObjectUI(kJournal) : nullptr;
    if (!journals)
        return result;
    const RecordsetPtr list = journals->GetOrvoObjectList(journals->OID(), QString(), QString());
    if (!list)
        return result;
    list->SetFilter(QStringLiteral("OType = 'GR") + kJournalGroup + QStringLiteral("' "));
    QString oidr;
    if (list->RecordCount() > 0) {
        list->MoveFirst();
        oidr = NzString(list->Field(QStringLiteral("OIDR")));
    }
    list->SetFilter(QString());
    if (oidr.size() <= 8)
        return result;
    const OrvoFormPtr form = formByName(QStringLiteral("frmBROperPreview"));
    if (!form) {
        ShowError(NoFormText(QStringLiteral("frmBROperPreview")));
        return result;
    }
    form->SetOrvoObjectUIO(journals->GetOrvoObject(oidr));
    result.Action = ClickResult::ShowForm;
    result.Payload = Value(std::static_pointer_cast<ObjectBase>(form));
    return result;
}

ClickResult UI0201500::bankExport() {
    ClickResult result;
    const OrvoServicesPtr services = OrvoS();
    const OrvoObjectsServicePtr objects = services ? services->ObjectsService() : nullptr;
    const OrvoFormPtr form = formByName(QStringLiteral("frmTelebank"));
    if (!form) {
        ShowError(NoFormText(QStringLiteral("frmTelebank")));
        return result;
    }
    form->SetOrvoObjectUIO(objects ? objects->GetObjectUIO(kOperation) : nullptr);
    result.Action = ClickResult::ShowForm;
    result.Payload = Value(std::static_pointer_cast<ObjectBase>(form));
    return result;
}

RecordsetPtr UI0201500::GetOrvoObjectList(const QString& oid, const QString& from,
                                          const QString& to) {
    Q_UNUSED(from);
    Q_UNUSED(to);
    return Core().GetOrvoObjectList(oid, QString(), QString());
}

bool UI0201500::DeleteOrvoObject(const QString& oid) {
    const OrvoServicesPtr services = OrvoS();
    const OrvoObjectsServicePtr objects = services ? services->ObjectsService() : nullptr;
    const OrvoObjectUIOPtr operation = objects ? objects->GetObjectUIO(oid) : nullptr;
    if (!operation)
        return false;
    const RightsRecord rights = Catalogue::RightsFor(
        QStringLiteral("CBROperRights") +
        QString::number(NzLong(operation->Field(QStringLiteral("BROperGroupID")))));
    if (!rights.Delete)
        return false;
    return Core().DeleteOrvoObject(operation->OIDR());
}

bool UI0201500::AddToDeskTopOrvoObject(const QString& oid) {
    OrvoObjectUIOPtr none;
    const OrvoFormPtr form = Catalogue::OpenOperationForm(oid, none);
    if (!form)
        return false;
    const OrvoServicesPtr services = OrvoS();
    if (const auto desktop = services ? services->DeskTopService() : nullptr)
        desktop->AddForm(form);
    return true;
}

bool UI0201500::DragOK(const QString& oid) {
    Q_UNUSED(oid);
    return true;
}

bool UI0201500::DropOK(const QString& sourceOid, const QString& targetOid) {
    Q_UNUSED(sourceOid);
    Q_UNUSED(targetOid);
    return false;
}

} // namespace orvo
