// GroupEditor is what the editor of an operation group (frmBROperGroup) knows and
// decides, apart from its widgets. It opens a group under the rights CBROperGroupRights
// as a general group (a name and the group above) or an operations group with its form
// type, series, account settings, templates, numbering and document parameters; it says
// which tabs the form type has, keeps the number's parts in the user's order with a
// sample number, picks and clears the template group and the main template, computes and
// clears the group's debts through DO0201400_CreateFullSum, and writes the record
// (refusing a contract document group without templates). Closing with changes asks
// first.
#pragma once

#include "accounts/auto_number_mask.h"
#include "core/recordset.h"
#include "core/results.h"
#include "frame/orvo_object_uio.h"
#include "frame/tree_control.h"

#include <QDate>
#include <QString>
#include <QVector>

namespace orvo {

class GroupEditor {
public:
    struct FormType {
        QString OID;
        QString Name;
    };

    explicit GroupEditor(OrvoObjectUIOPtr group);

    // Reads the record's fields into the editor and the rights of groups.
    ResultRecord Load();

    bool IsGeneral() const { return general_; }
    bool IsNew() const;
    // " Bendra grupė", " Nauja bendra grupė", " Finansinių operacijų grupė" or " Nauja
    // finansinių operacijų grupė".
    QString Title() const;
    const RightsRecord& Rights() const { return rights_; }
    // A new group needs the right to create groups, a stored one the right to edit them.
    bool CanWrite() const;

    // The boxes of the window.
    QString Name;
    QString ParentGroupText;
    QString FormOID;
    bool SerijaIndication = false;
    QString Serija;
    QString AccountCode;
    // The form type's settings, "#"-joined (for O1000100 the template pairs, "|" and the
    // document type).
    QString Parameters;
    // "Numeruoti pagal banko sąskaitas": field 5 of Parameters for O0201501 and O0201502.
    bool NumByAcc = false;

    // Numbering.
    QDate ANDateFrom;
    qint32 ANMinimal = 1;
    QString ANPrefix;
    QString ANTemplate;
    int ANGroupBy = 0;
    int ANCycle = 3;
    AutoNumberMask& Mask() { return mask_; }
    const AutoNumberMask& Mask() const { return mask_; }
    // The sample number, txtExample: the mask with the first counter for this user today.
    QString Example() const;

    // Templates.
    qint64 BRTemplateID = 0;
    qint64 DefaultTemplateID = 0;
    QString TemplateGroupText;
    QString MainTemplateText;

    // The form types of GetFormTypes, the plain financial operation first.
    QVector<FormType> FormTypes() const;
    // Whether operations of the form type get numbers (the tab Autonumber).
    static bool HasAutoNumber(const QString& formOID);
    // The keys of the tabs shown for the form type, in order: Templates, Autonumber,
    // DebtSettings; none for a general group.
    QStringList Tabs() const;
    static QString TabCaption(const QString& key);
    // Whether the form type keeps "Numeruoti pagal banko sąskaitas".
    static bool HasNumByAcc(const QString& formOID);
    // The window that edits the form type's Parameters; empty for a type without one.
    static QString ParametersFormFor(const QString& formOID);

    // cmdTemplate: a template group picked with "Pažymėkite norimą grupę".
    bool PickTemplateGroup();
    // cmdMainTemplate: a template picked with "Pasirinkite šabloną...".
    bool PickMainTemplate();
    // mnuSetAsMain: the template of the tree's node (key "T" + ID) becomes the main one.
    bool SetAsMain(const QString& nodeKey);
    void ClearTemplate();
    void ClearMainTemplate();
    // The group's templates in the tree, by the data object's FillTemplatesTrw.
    ValueResult FillTemplates(const TreeControlPtr& tree);

    // DO0201400_GetAccountSettings of AccountCode: Code, CodeName, Account, AccountName.
    RecordsetPtr AccountSettings();

    // cmdCreateFullSum and cmdClearFullSum: asked first, "Atlikta!" when done.
    bool CreateFullSum(const QDate& date);
    bool ClearFullSum();

    // cmdParameters: the form type's parameter window on the group; a window that is
    // not there is refused with the navigator's text. True when a window was shown.
    bool EditParameters();

    // cmdWrite.
    ResultRecord Write();

    bool Changed() const { return changed_; }
    void MarkChanged() { changed_ = true; }
    // Whether the window may close: without changes, or when the user agrees to lose
    // them ("Uždaryti be išsaugojimo?").
    bool CanClose() const;

    const OrvoObjectUIOPtr& Object() const { return object_; }

private:
    // Whether the stored group can no longer be read: someone else deleted it.
    bool deletedMeanwhile() const;
    // Puts the editor's values into the record's fields.
    void putFields();
    QString parametersToWrite() const;
    bool runFullSum(const QString& question, const QString& dateText);
    QString templateName(qint64 id) const;

    OrvoObjectUIOPtr object_;
    RightsRecord rights_;
    AutoNumberMask mask_;
    bool general_ = false;
    bool changed_ = false;
};

} // namespace orvo
