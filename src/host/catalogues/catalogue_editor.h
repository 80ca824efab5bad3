// CatalogueEditor is what the editor of one catalogue record (a firm, a person, an
// employee, a bank, a bank account, a currency, a user) knows and decides, apart from
// its widgets. It opens on a data object the caller holds (read, or blank for a new
// record), shows the record's fields as texts and checks (CatalogueFieldsOf), and on
// "Įrašyti" checks the record: a refusal is shown as a warning and the editor keeps
// what was typed; a save the host refuses (another user's change under the lock, a
// repeated code) shows the returned text and "Įrašymas neatliktas !" as an error.
// "Atšaukti" reads the record again; "Panaikinti" removes a stored record, and a
// refusal (entries still name it) is shown as an error. Without the kind's right to
// create, edit or delete (CatalogueRightKeyOf) the action is refused with a warning.
#pragma once

#include "core/results.h"
#include "frame/orvo_object_uio.h"
#include "host/catalogues/catalogue_editor_fields.h"

#include <QHash>
#include <QString>
#include <QVector>
#include <memory>

namespace orvo::host {

// One item of a choice field: the value stored and the text shown.
struct CatalogueChoice {
    QString Value;
    QString Text;
};

class CatalogueEditor {
public:
    explicit CatalogueEditor(OrvoObjectUIOPtr object);
    virtual ~CatalogueEditor();

    // The editor that suits the object's kind; null for a kind without one or no object.
    static std::unique_ptr<CatalogueEditor> For(const OrvoObjectUIOPtr& object);

    // The data object of the firm that keeps the books, read through the host's objects
    // service; a blank firm marked as the own one when the book has none yet; null
    // without services.
    static OrvoObjectUIOPtr OwnFirmObject();

    // Takes the record's values from the object; the changed mark is cleared.
    virtual ResultRecord Load();

    QString Kind() const { return kind_; }
    const QVector<CatalogueField>& Fields() const { return fields_; }
    const CatalogueField* FieldNamed(const QString& name) const;
    // "Įmonė: UAB Ąžuolas", "Nauja įmonė" style titles; the own firm is "Mano įmonė".
    QString WindowTitle() const;

    // A field as the window shows it: a text, a number with a decimal comma, a choice's
    // stored value, a reference's OIDR.
    QString Text(const QString& name) const { return texts_.value(name); }
    void SetText(const QString& name, const QString& text);
    bool Flag(const QString& name) const { return flags_.value(name); }
    void SetFlag(const QString& name, bool on);
    // The items of a choice field, in the order shown.
    virtual QVector<CatalogueChoice> Choices(const QString& name) const;
    // What a reference field shows: the referenced record's name.
    QString ReferenceText(const QString& name) const { return referenceTexts_.value(name); }
    // A picked object as "OIDR_text" becomes the reference; false for an empty pick or
    // one of a kind the field does not take.
    bool TakeReference(const QString& name, const QString& picked);

    bool IsNew() const;
    bool Changed() const { return changed_; }
    void MarkChanged() { changed_ = true; }

    // The first check the values fail, as the warning shows it; empty when none fails.
    virtual QString Refusal() const;

    ResultRecord Save();
    ResultRecord Undo();
    // Removes the stored record; the caller has asked the user already.
    ResultRecord Delete();

    const OrvoObjectUIOPtr& Object() const { return object_; }
    // The kind's rights for the current user (read, delete, edit, create, fifth).
    const RightsRecord& Rights() const { return rights_; }

protected:
    // Called first by Save, to put the typed values in their stored form.
    virtual void normalize() {}
    // Called after the fields have been written into the object and before it is saved.
    virtual ResultRecord beforeSave() { return ResultRecord::Success(); }
    // Called after a successful save or read, for what the subclass keeps beside it.
    virtual void afterLoad() {}
    // The text of a field's value in the record.
    static QString valueText(const Value& v);
    // The name of a referenced record, made from its data object.
    static QString referenceName(const QString& oidr);
    // The records of a kind as the items of a choice (the record number and the list's
    // text), after "(nenurodytas)" for none.
    QVector<CatalogueChoice> recordChoices(const QString& code) const;
    enum class Action { Create, Edit, Delete };
    // The refusal when the user lacks the kind's right for the action; empty when held.
    QString rightRefusal(Action action) const;
    // Shows the refusal as a warning; the result carries it with Code 777.
    ResultRecord refuse(const QString& text) const;

    OrvoObjectUIOPtr object_;
    QString kind_;
    QVector<CatalogueField> fields_;
    QHash<QString, QString> texts_;
    QHash<QString, bool> flags_;
    QHash<QString, QString> referenceTexts_;
    RightsRecord rights_;
    bool changed_ = false;

private:
    void writeFields();
};

} // namespace orvo::host
