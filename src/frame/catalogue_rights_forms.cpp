#include "frame/catalogue_rights_forms.h"

#include "core/null_readers.h"
#include "frame/messages.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"

namespace orvo::Catalogue {

RightsRecord RightsFor(const QString& key) {
    RightsRecord record;
    const OrvoServicesPtr services = OrvoS();
    const OrvoRightsServicePtr rights = services ? services->RightsService() : nullptr;
    if (!rights)
        return record;
    // The host's order of asking; the record's order of keeping differs.
    const bool read = rights->ReadRight(key, QString());
    const bool edit = rights->EditRight(key, QString());
    const bool del = rights->DeleteRight(key, QString());
    const bool create = rights->CreateRight(key, QString());
    const bool fifth = rights->FifthRight(key, QString());
    record.Read = RightsRecord::Flag(read);
    record.Delete = RightsRecord::Flag(del);
    record.Edit = RightsRecord::Flag(edit);
    record.Create = RightsRecord::Flag(create);
    record.Fifth = RightsRecord::Flag(fifth);
    return record;
}

QString FormNameForKind(const QString& code) {
    if (code == QLatin1String("O0201501") || code == QLatin1String("O0201502"))
        return QStringLiteral("frmTransfer");
    if (code == QLatin1String("O0201503") || code == QLatin1String("O0201504"))
        return QStringLiteral("frmCashPayment");
    if (code == QLatin1String("O0201505"))
        return QStringLiteral("frmAdvanceReport");
    if (code == QLatin1String("O0201506"))
        return QStringLiteral("frmAccountsClosing");
    return QStringLiteral("frmBROper");
}

namespace {

OrvoFormPtr createForm(const QString& name) {
    const OrvoServicesPtr services = OrvoS();
    const FormsPtr forms = services ? services->FormsService() : nullptr;
    return forms ? forms->CreateForm(name) : nullptr;
}

OrvoObjectsServicePtr objectsService() {
    const OrvoServicesPtr services = OrvoS();
    return services ? services->ObjectsService() : nullptr;
}

// The editor of a document kind behind an operation, and whether it is told an empty
// ClickedParameters; an empty name means the kind is the host's to show.
QString editorOfReferenceKind(const QString& kind, bool* clearClicked) {
    *clearClicked = false;
    if (kind == QLatin1String("O0201501") || kind == QLatin1String("O0201502")) {
        *clearClicked = true;
        return QStringLiteral("frmTransfer");
    }
    if (kind == QLatin1String("O0201503") || kind == QLatin1String("O0201504")) {
        *clearClicked = true;
        return QStringLiteral("frmCashPayment");
    }
    if (kind == QLatin1String("O0201505"))
        return QStringLiteral("frmAdvanceReport");
    if (kind == QLatin1String("O0201506"))
        return QStringLiteral("frmAccountsClosing");
    if (kind == QLatin1String("O0201500") || kind == QLatin1String("O0300100") ||
        kind == QLatin1String("O0400100"))
        return QStringLiteral("frmBROper");
    return QString();
}

} // namespace

OrvoFormPtr NewFormForKind(const QString& code) {
    return createForm(FormNameForKind(code));
}

OrvoFormPtr OpenOperationForm(const QString& oidr, OrvoObjectUIOPtr& uio) {
    // 1. Fetch the object when none is given.
    if (!uio) {
        if (const OrvoObjectsServicePtr objects = objectsService())
            uio = objects->GetObjectUIO(oidr);
    }
    // 2. A record without its references has been deleted.
    bool deleted = true;
    if (uio)
        deleted = uio->Field(QStringLiteral("OIDR")).isNull() ||
                  uio->Field(QStringLiteral("FOIDR")).isNull();
    // 3. The group's read right, silently.
    if (uio) {
        const RightsRecord rights =
            RightsFor(QStringLiteral("CBROperRights") +
                      QString::number(NzLong(uio->Field(QStringLiteral("BROperGroupID")))));
        if (!rights.Read)
            return nullptr;
    }
    // 4.
    if (deleted) {
        uio.reset();
        ShowError(QStringLiteral("Operacija panaikinta !"));
        return nullptr;
    }
    // 5. The editor of the document behind the operation.
    const QString foidr = NzString(uio->Field(QStringLiteral("FOIDR")));
    bool clearClicked = false;
    const QString name = editorOfReferenceKind(foidr.left(8), &clearClicked);
    if (name.isEmpty()) {
        if (const OrvoObjectsServicePtr objects = objectsService())
            objects->ShowObject(foidr);
        return nullptr;
    }
    const OrvoFormPtr form = createForm(name);
    if (!form) {
        ShowError(QStringLiteral("Forma ") + name + QStringLiteral(" neprieinama."));
        return nullptr;
    }
    // 6. Bound to its object; the clicked text follows it, as every opener sets them.
    form->SetOrvoObjectUIO(uio);
    if (clearClicked)
        form->SetClickedParameters(QString());
    return form;
}

OrvoObjectUIOPtr GetUIOByOIDR(const QString& oidr) {
    if (oidr.isEmpty())
        return nullptr;
    const OrvoObjectsServicePtr objects = objectsService();
    return objects ? objects->GetObjectUIO(oidr) : nullptr;
}

} // namespace orvo::Catalogue
