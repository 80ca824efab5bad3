// frmBROperRecord, the entry card, on the desktop: opened by ShowBR, driven by control
// name, with its captions, lists and menus, a restricted card, and a refused save that
// keeps the card open.
#include "operation_forms_fixture.h"

#include <QCheckBox>
#include <QLabel>
#include <QMenu>
#include <QToolButton>

namespace orvo::ui::testing {

namespace {

QStringList items(QComboBox* combo) {
    QStringList texts;
    for (int i = 0; combo && i < combo->count(); ++i)
        texts.append(combo->itemText(i));
    return texts;
}

} // namespace

TEST_F(OperationFormsTest, EntryCardShowsItsCaptionsListsAndMenus) {
    const OrvoObjectUIOPtr op = NewOperation();
    const QString guid = op->Methods(QStringLiteral("AddBR"),
                                     {Value(QStringLiteral("6100")), Value(QStringLiteral("2720")),
                                      Value(15.0), Value(ValueArray())})
                             .Value.toString();
    QStringList trade, vat, tariffs, writeMenu, headers;
    QString account, sum, write, exit, navigation, flag;
    Expect(QStringLiteral("frmBROperRecordDialog"), [&](QDialog& card) {
        trade = items(Find<QComboBox>(&card, "cmbTradeOperationTypes"));
        vat = items(Find<QComboBox>(&card, "cmbVAT"));
        tariffs = items(Find<QComboBox>(&card, "cmbVATTariff"));
        account = Find<QComboBox>(&card, "cmbAccountD")->currentText();
        sum = Find<QLineEdit>(&card, "txtSuma")->text();
        auto* button = Find<QToolButton>(&card, "cmdWrite");
        write = button->text();
        for (QAction* a : button->menu()->actions())
            writeMenu.append(a->text());
        exit = Find<QAbstractButton>(&card, "cmdExit")->text();
        navigation = Find<QAbstractButton>(&card, "chkNavigation")->text();
        flag = Find<QAbstractButton>(&card, "chkVATFlag")->text();
        auto* list = Find<QTreeWidget>(&card, "lvwAddressD");
        for (int c = 0; c < list->columnCount(); ++c)
            headers.append(list->headerItem()->text(c));
        // A trade type of 0 keeps the VAT fields closed.
        EXPECT_FALSE(Find<QWidget>(&card, "cmbVAT")->isEnabled());
        EXPECT_FALSE(Find<QWidget>(&card, "chkVATFlag")->isEnabled());
        Click(&card, "cmdExit");
    });
    const ValueResult shown = op->Methods(QStringLiteral("ShowBR"), {Value(guid)});
    EXPECT_EQ(shown.Value.toInt32(), 0);
    EXPECT_EQ(trade, QStringList({"Kitos operacijos", "Prekių (paslaugų) pirkimas",
                                  "Prekių grąžinimas tiekėjams", "Prekių (paslaugų) pardavimas",
                                  "Prekių grąžinimas iš pirkėjų"}));
    EXPECT_EQ(vat, QStringList({"Prekių (paslaugų) vertė", "PVM suma"}));
    // The book's VAT rates replace the card's own starting list.
    EXPECT_EQ(tariffs, QStringList({"21,00", "9,00", "5,00", "0,00"}));
    EXPECT_TRUE(account.startsWith(QStringLiteral("6100 "))) << account.toStdString();
    EXPECT_EQ(sum, QStringLiteral("15,00"));
    EXPECT_EQ(write, QStringLiteral("Išsaugoti"));
    EXPECT_EQ(writeMenu, QStringList({"Įrašyti visą operaciją , CTRL + S",
                                      "Įrašyti visą operaciją  ir atidaryti naują, CTRL + N"}));
    EXPECT_EQ(exit, QStringLiteral("Uždaryti"));
    EXPECT_EQ(navigation, QStringLiteral("Navigacija"));
    EXPECT_EQ(flag, QStringLiteral("PVM tarifas"));
    EXPECT_EQ(headers, QStringList({"Pavadinimas", "Reikšmė"}));
    EXPECT_TRUE(AllAnswered());
}

TEST_F(OperationFormsTest, RestrictedCardLocksTheSumsAndLeavesTheAddresseesOpen) {
    const OrvoObjectUIOPtr op = NewOperation();
    const QString guid = op->Methods(QStringLiteral("AddBR"),
                                     {Value(QStringLiteral("6100")), Value(QStringLiteral("2720")),
                                      Value(15.0), Value(ValueArray())})
                             .Value.toString();
    bool sumOpen = true, accountOpen = true, addresseesOpen = false, currencyOpen = false;
    Expect(QStringLiteral("frmBROperRecordDialog"), [&](QDialog& card) {
        sumOpen = Find<QWidget>(&card, "txtSuma")->isEnabled();
        accountOpen = Find<QWidget>(&card, "cmbAccountD")->isEnabled();
        addresseesOpen = Find<QWidget>(&card, "lvwAddressD")->isEnabled();
        currencyOpen = Find<QWidget>(&card, "cmbCurrD")->isEnabled();
        Click(&card, "cmdWrite");
    });
    const ValueResult shown =
        op->Methods(QStringLiteral("ShowBR"), {Value(guid), Value(true), Value(false)});
    EXPECT_FALSE(sumOpen);
    EXPECT_FALSE(accountOpen);
    EXPECT_TRUE(addresseesOpen);
    // The caller asked for the currencies to stay closed; an empty currency is open.
    EXPECT_TRUE(currencyOpen);
    EXPECT_EQ(shown.Value.toInt32(), 1);
    const RecordsetPtr br = Entries(op);
    br->MoveFirst();
    EXPECT_DOUBLE_EQ(br->Field(QStringLiteral("SumA")).toDouble(), 15.0);
}

TEST_F(OperationFormsTest, CardWithAWrongAccountWarnsAndStaysOpen) {
    const OrvoObjectUIOPtr op = NewOperation();
    const QString guid = op->Methods(QStringLiteral("AddBR"),
                                     {Value(QStringLiteral("?")), Value(QStringLiteral("2720")),
                                      Value(15.0), Value(ValueArray())})
                             .Value.toString();
    bool stillOpen = false;
    Expect(QStringLiteral("frmBROperRecordDialog"), [&](QDialog& card) {
        ExpectBox(QStringLiteral("cmdOK"));
        Click(&card, "cmdWrite");
        stillOpen = card.isVisible();
        Click(&card, "cmdExit");
    });
    const ValueResult shown = op->Methods(QStringLiteral("ShowBR"), {Value(guid)});
    EXPECT_TRUE(stillOpen);
    EXPECT_EQ(shown.Value.toInt32(), 0);
    const QList<ShownMessage> boxes = Boxes();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes.first().Kind, MessageKind::Warning);
    EXPECT_EQ(boxes.first().Text, QStringLiteral("Klaidinga balansinės sąskaitos reikšmė!"));
    EXPECT_TRUE(AllAnswered());
}

} // namespace orvo::ui::testing
