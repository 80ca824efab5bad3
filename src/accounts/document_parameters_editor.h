// DocumentParametersEditor is what the window of a contract document group's parameters
// (frmDocumentParameters, "Dokumento parametrai") knows and decides, apart from its
// widgets. The group's Parameters hold, for each template type the document type is
// posted by, the type's ID and the chosen template's ID, "#"-joined, then "|" and the
// document type's key: "3#41#5#42|SALE_INVOICE".
//
// The document types are the rows of object O0001602 and, last, the fixed
// RETURN_FROM_BUYER "Pardavimo grąžinimas iš pirkėjų". The first stands chosen unless the
// stored group's RelatedDocumentGroup names another, or (with no such row) the key after
// "|" does. The template types of O0001612 whose DocumentTypeCodes hold the chosen key
// are the rows; a row's template is picked among O0201600, cleared, and the stored pairs
// fill the rows by their type IDs.
#pragma once

#include "core/results.h"
#include "frame/orvo_object_uio.h"

#include <QHash>
#include <QString>
#include <QVector>

namespace orvo {

class DocumentParametersEditor {
public:
    struct DocumentType {
        QString Code;
        QString Name;
    };
    struct Row {
        qint64 TypeID = 0;
        QString TypeText;
        qint64 TemplateID = 0;
        QString TemplateText;
    };

    explicit DocumentParametersEditor(OrvoObjectUIOPtr group);

    ResultRecord Load();

    static QString ReturnFromBuyerKey() { return QStringLiteral("RETURN_FROM_BUYER"); }
    static QString ReturnFromBuyerText() {
        return QStringLiteral("Pardavimo grąžinimas iš pirkėjų");
    }

    const QVector<DocumentType>& DocumentTypes() const { return types_; }
    int DocumentTypeIndex() const { return typeIndex_; }
    // Chooses the document type and lists its template types.
    void SelectDocumentType(int index);

    const QVector<Row>& Rows() const { return rows_; }
    // cmdSelect: a template picked for the row.
    bool Select(int row);
    // cmdDelete: the row's template cleared.
    bool Delete(int row);

    // The text cmdOK writes: the pairs of the rows with a template, "|" and the key.
    QString Text() const;
    // cmdOK: the text into the group's Parameters.
    void Write();

private:
    void fillRows();
    QString templateName(qint64 id) const;

    OrvoObjectUIOPtr group_;
    QVector<DocumentType> types_;
    int typeIndex_ = 0;
    QVector<Row> rows_;
    // The template of each template type, as stored and as chosen since.
    QHash<qint64, qint64> chosen_;
    QHash<qint64, QString> chosenText_;
};

} // namespace orvo
