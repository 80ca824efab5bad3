// TemplateChoice is what the template chooser (frmBROperTemplateSelect, " Operacijos
// šablonai") knows and decides, apart from its widgets: the caption, the rows of its
// tree (TemplateList: the operation group's template group when the operation has a
// group, every template otherwise), the template the group presets, and what "Gerai"
// decides: a sum that is no number gives "Klaidinga sumos reikšmė!" and the window
// stays; otherwise the chosen template's reference and the sum are the answer.
//
// TemplateChooserForm is how the opener of the window reads that answer without
// knowing its widgets: the form implements it.
#pragma once

#include "core/recordset.h"
#include "core/results.h"
#include "frame/orvo_object_uio.h"

#include <QString>

namespace orvo {

struct TemplateChoiceResult {
    bool Chosen = false;
    // "O0201600" + the template's ID.
    QString TemplateOID;
    qint64 TemplateID = 0;
    double Sum = 0.0;
};

class TemplateChooserForm {
public:
    virtual ~TemplateChooserForm() = default;
    virtual TemplateChoiceResult Choice() const = 0;
};

class TemplateChoice {
public:
    static QString Caption(bool hasGroup);
    static QString BadSumText() { return QStringLiteral("Klaidinga sumos reikšmė!"); }

    // `operation` may be null: then every template is offered.
    ResultRecord Load(const OrvoObjectUIOPtr& operation);
    bool HasGroup() const { return groupId_ > 0; }
    // ID, ParentCode, OwnCode, GroupFlag, Preview, AccPreview, OIDR, Name.
    RecordsetPtr Rows() const { return rows_; }
    // The template the group presets, 0 when none.
    qint64 PresetID() const { return presetId_; }
    // Whether the row of that ID is a template (not a group).
    bool IsTemplate(qint64 id) const;
    // The text txtSelect shows for a row.
    QString SelectedText(qint64 id) const;

    // "Gerai": false (after the warning on a bad sum) when the window must stay.
    bool Accept(qint64 selectedId, const QString& sumText);
    const TemplateChoiceResult& Result() const { return result_; }

private:
    RecordsetPtr rows_;
    qint64 groupId_ = 0;
    qint64 presetId_ = 0;
    TemplateChoiceResult result_;
};

} // namespace orvo
