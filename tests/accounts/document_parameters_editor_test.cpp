// DocumentParametersEditor, the contract document group's parameters without widgets:
// the document types with the fixed return row last, the template types of the chosen
// type, templates picked and cleared per row, the text written ("#"-joined pairs, "|"
// and the key), and the type a stored group shows first.
#include "accounts/document_parameters_editor.h"
#include "group_fixture.h"
#include "host/session/scripted_choices.h"

namespace orvo::accounts_testing {
namespace {

class DocumentParametersTest : public GroupTest {
protected:
    qint64 TypeId(const QString& name) {
        const host::QueryResult q = session_->Db().Query(
            QStringLiteral("SELECT ID FROM TemplateTypes WHERE Name = ?"), {Value(name)});
        return q.ok() && q.RowCount() == 1 ? static_cast<qint64>(q.At(0, 0).toDouble()) : 0;
    }

    OrvoObjectUIOPtr ContractGroup(const QString& parameters) {
        OrvoObjectUIOPtr object = navigator_->GetOrvoObject(QString());
        object->SetField(QStringLiteral("Name"), QStringLiteral("Sutartys"));
        object->SetField(QStringLiteral("GroupFlag"), Value(0));
        object->SetField(QStringLiteral("FormOID"), QStringLiteral("O1000100"));
        object->SetField(QStringLiteral("Parameters"), parameters);
        const ResultRecord r = object->Save();
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return navigator_->GetOrvoObject(object->OIDR());
    }

    static QStringList RowTexts(const DocumentParametersEditor& e) {
        QStringList out;
        for (const auto& r : e.Rows())
            out << r.TypeText;
        return out;
    }

    static int RowOf(const DocumentParametersEditor& e, qint64 typeId) {
        for (int i = 0; i < e.Rows().size(); ++i)
            if (e.Rows().at(i).TypeID == typeId)
                return i;
        return -1;
    }
};

TEST_P(DocumentParametersTest,
       TheDocumentTypesEndWithTheReturnFromBuyerRowAndTheFirstStandsChosen) {
    DocumentParametersEditor e(navigator_->GetOrvoObject(QString()));
    ASSERT_TRUE(e.Load().ok());
    ASSERT_GE(e.DocumentTypes().size(), 2);
    EXPECT_EQ(e.DocumentTypes().last().Code, QStringLiteral("RETURN_FROM_BUYER"));
    EXPECT_EQ(e.DocumentTypes().last().Name, QStringLiteral("Pardavimo grąžinimas iš pirkėjų"));
    EXPECT_EQ(e.DocumentTypeIndex(), 0);
    EXPECT_EQ(e.Text(), QStringLiteral("|") + e.DocumentTypes().first().Code);
}

TEST_P(DocumentParametersTest, TheTemplateTypesAreThoseOfTheChosenDocumentType) {
    DocumentParametersEditor e(navigator_->GetOrvoObject(QString()));
    ASSERT_TRUE(e.Load().ok());
    for (int i = 0; i < e.DocumentTypes().size(); ++i) {
        e.SelectDocumentType(i);
        const QString code = e.DocumentTypes().at(i).Code;
        if (code == QLatin1String("PURCHASE_INVOICE")) {
            EXPECT_EQ(RowTexts(e), QStringList({QStringLiteral("PVM kontavimas"),
                                                QStringLiteral("Pirkimo kontavimas")}));
        } else if (code == QLatin1String("RETURN_FROM_BUYER")) {
            EXPECT_EQ(RowTexts(e), QStringList({QStringLiteral("PVM kontavimas"),
                                                QStringLiteral("Pardavimo kontavimas")}));
        }
    }
}

TEST_P(DocumentParametersTest, PickedTemplatesAreWrittenAsPairsFollowedByTheKey) {
    const OrvoObjectUIOPtr group = navigator_->GetOrvoObject(QString());
    DocumentParametersEditor e(group);
    ASSERT_TRUE(e.Load().ok());
    e.SelectDocumentType(e.DocumentTypes().size() - 1);
    const qint64 vat = TypeId(QStringLiteral("PVM kontavimas"));
    const qint64 sale = TypeId(QStringLiteral("Pardavimo kontavimas"));
    session_->Choices()->QueuePick(QStringLiteral("O020160041_Grąžinimas"));
    ASSERT_TRUE(e.Select(RowOf(e, sale)));
    session_->Choices()->QueuePick(QStringLiteral("O020160042_PVM grąžinimas"));
    ASSERT_TRUE(e.Select(RowOf(e, vat)));
    EXPECT_EQ(e.Rows().at(RowOf(e, sale)).TemplateText, QStringLiteral("Grąžinimas"));
    EXPECT_EQ(session_->Choices()->TakeAsked(),
              QStringList({QStringLiteral("pick O0201600: Pasirinkite šabloną..."),
                           QStringLiteral("pick O0201600: Pasirinkite šabloną...")}));
    // The pairs go in the order of the rows.
    EXPECT_EQ(e.Text(), QStringLiteral("%1#42#%2#41|RETURN_FROM_BUYER").arg(vat).arg(sale));

    // A cancelled pick keeps the template; a cleared one leaves its row out.
    EXPECT_FALSE(e.Select(RowOf(e, sale)));
    ASSERT_TRUE(e.Delete(RowOf(e, vat)));
    EXPECT_FALSE(e.Delete(RowOf(e, vat)));
    e.Write();
    EXPECT_EQ(group->Field(QStringLiteral("Parameters")).toString(),
              QStringLiteral("%1#41|RETURN_FROM_BUYER").arg(sale));
}

TEST_P(DocumentParametersTest, AStoredGroupShowsItsRelatedTypeAndItsTemplates) {
    const qint64 vat = TypeId(QStringLiteral("PVM kontavimas"));
    DocumentParametersEditor purchase(
        ContractGroup(QStringLiteral("%1#7|PURCHASE_INVOICE").arg(vat)));
    ASSERT_TRUE(purchase.Load().ok());
    EXPECT_EQ(purchase.DocumentTypes().at(purchase.DocumentTypeIndex()).Code,
              QStringLiteral("PURCHASE_INVOICE"));
    const int row = RowOf(purchase, vat);
    ASSERT_GE(row, 0);
    EXPECT_EQ(purchase.Rows().at(row).TemplateID, 7);
    EXPECT_EQ(purchase.Text(), QStringLiteral("%1#7|PURCHASE_INVOICE").arg(vat));

    // A key that is no stored type chooses its item by the text behind "|".
    DocumentParametersEditor returns(
        ContractGroup(QStringLiteral("%1#7|RETURN_FROM_BUYER").arg(vat)));
    ASSERT_TRUE(returns.Load().ok());
    EXPECT_EQ(returns.DocumentTypeIndex(), returns.DocumentTypes().size() - 1);
}

ORVO_STORAGE_BACKENDS(DocumentParametersTest);

} // namespace
} // namespace orvo::accounts_testing
