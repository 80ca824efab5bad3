// The book's ready comments on both backends: GetCommentList carries out an action and
// answers with the whole list afterwards, by name; what it must refuse it refuses with a
// Lithuanian message and changes nothing.
#include "accounts_fixture.h"

namespace orvo::host::testing {
namespace {

class CommentListMethodsTest : public AccountsTest {
protected:
    // The list after the action, each row as "ID|Name"; the refusal's text on failure.
    QStringList Run(const QString& action, qint64 id = 0, const QString& text = QString(),
                    QString* refusal = nullptr) {
        const BOResult r = Call(QStringLiteral("GetCommentList"),
                                QStringLiteral("'%1',%2,'%3'").arg(action).arg(id).arg(text));
        if (refusal)
            *refusal = r.ok() ? QString() : r.Text;
        QStringList rows;
        if (const RecordsetPtr rs = r.ok() ? r.Data.toRecordset() : nullptr)
            for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
                rows << QStringLiteral("%1|%2")
                            .arg(rs->Field(QStringLiteral("ID")).toInt32())
                            .arg(rs->Field(QStringLiteral("Name")).toString());
        return rows;
    }

    static QStringList Names(const QStringList& rows) {
        QStringList names;
        for (const QString& row : rows)
            names << row.section(QLatin1Char('|'), 1);
        return names;
    }

    static qint64 IdOf(const QStringList& rows, const QString& name) {
        for (const QString& row : rows)
            if (row.section(QLatin1Char('|'), 1) == name)
                return row.section(QLatin1Char('|'), 0, 0).toLongLong();
        return 0;
    }
};

TEST_P(CommentListMethodsTest, NewBookHasNoReadyComments) {
    EXPECT_TRUE(Run(QStringLiteral("List")).isEmpty());
    EXPECT_TRUE(Run(QString()).isEmpty());
}

TEST_P(CommentListMethodsTest, AddedCommentsComeBackByName) {
    Run(QStringLiteral("Add"), 0, QStringLiteral("Prekių pardavimas"));
    const QStringList rows = Run(QStringLiteral("Add"), 0, QStringLiteral("Banko mokesčiai"));
    EXPECT_EQ(Names(rows), QStringList({"Banko mokesčiai", "Prekių pardavimas"}));
    EXPECT_EQ(Names(Run(QStringLiteral("List"))), Names(rows));
}

TEST_P(CommentListMethodsTest, ChangedCommentKeepsItsNumber) {
    const QStringList before = Run(QStringLiteral("Add"), 0, QStringLiteral("Nuoma už sausį"));
    const qint64 id = IdOf(before, QStringLiteral("Nuoma už sausį"));
    ASSERT_GT(id, 0);
    const QStringList after = Run(QStringLiteral("Change"), id, QStringLiteral("Nuoma už vasarį"));
    EXPECT_EQ(after, QStringList({QStringLiteral("%1|Nuoma už vasarį").arg(id)}));
}

TEST_P(CommentListMethodsTest, DeletedCommentLeavesTheList) {
    Run(QStringLiteral("Add"), 0, QStringLiteral("Avansas"));
    const QStringList rows = Run(QStringLiteral("Add"), 0, QStringLiteral("Grąžinimas"));
    const QStringList after = Run(QStringLiteral("Delete"), IdOf(rows, QStringLiteral("Avansas")));
    EXPECT_EQ(Names(after), QStringList({"Grąžinimas"}));
}

TEST_P(CommentListMethodsTest, EmptyCommentIsRefusedAndNothingIsStored) {
    QString refusal;
    Run(QStringLiteral("Add"), 0, QStringLiteral("   "), &refusal);
    EXPECT_EQ(refusal, QStringLiteral("Neįvestas komentaras !"));
    EXPECT_TRUE(Run(QStringLiteral("List")).isEmpty());
}

TEST_P(CommentListMethodsTest, ChangingOrDeletingAMissingCommentIsRefused) {
    QString refusal;
    Run(QStringLiteral("Change"), 4242, QStringLiteral("Kita"), &refusal);
    EXPECT_EQ(refusal, QStringLiteral("Komentaras nerastas: jis jau panaikintas."));
    Run(QStringLiteral("Delete"), 4242, QString(), &refusal);
    EXPECT_EQ(refusal, QStringLiteral("Komentaras nerastas: jis jau panaikintas."));
}

TEST_P(CommentListMethodsTest, UnknownActionIsRefusedByName) {
    QString refusal;
    Run(QStringLiteral("Copy"), 0, QStringLiteral("x"), &refusal);
    EXPECT_EQ(refusal, QStringLiteral("Nežinomas komentarų sąrašo veiksmas „Copy“."));
    EXPECT_TRUE(Run(QStringLiteral("List")).isEmpty());
}

ORVO_STORAGE_BACKENDS(CommentListMethodsTest);

} // namespace
} // namespace orvo::host::testing
