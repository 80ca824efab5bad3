// The fixture of the view period's tests: the desktop's fixture on the demo book with an
// operations group of its own holding operations on five days, and the way to find that
// group's row in the tree, opening the groups above it as a user would.
#pragma once

#include "desktop_fixture.h"

#include "frame/orvo_objects_service.h"
#include "frame/orvo_services.h"
#include "frame/orvo_settings_service.h"
#include "host/session/host_shell_service.h"
#include "ui/shell/view_period.h"

#include <QDate>
#include <QTreeWidgetItemIterator>

namespace orvo::ui::testing {

class PeriodTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        if (HasFatalFailure())
            return;
        // An operations group of its own, with operations on five days.
        const OrvoObjectUIOPtr group = Groups()->GetOrvoObject(QString());
        ASSERT_TRUE(group);
        group->SetField(QStringLiteral("Name"), QStringLiteral("Laikotarpio grupė"));
        group->SetField(QStringLiteral("GroupFlag"), Value(0));
        group->SetField(QStringLiteral("FormOID"), QStringLiteral("O0201500"));
        const ResultRecord stored = group->Save();
        ASSERT_TRUE(stored.ok()) << stored.Text.toStdString();
        groupId_ = group->OIDR().mid(8);
        for (int month = 1; month <= 5; ++month) {
            const QDate day(2024, month, 10);
            const OrvoObjectUIOPtr op =
                session_->Services()->ObjectsService()->GetObjectUIO(QStringLiteral("O0201500"));
            ASSERT_TRUE(op);
            op->SetField(QStringLiteral("BROperGroupID"), Value(groupId_.toInt()));
            op->SetField(QStringLiteral("DateD"), Value(day));
            op->SetField(QStringLiteral("Number"), QStringLiteral("P%1").arg(month));
            const ResultRecord saved = op->Save();
            ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
            days_.append(day);
        }
    }

    QString GroupOid() const { return QStringLiteral("O0201400") + groupId_; }

    OrvoObjectUIPtr Groups() {
        return session_->Services()->ObjectsService()->GetObjectUI(QStringLiteral("O0201400"));
    }

    // The operations of the group between the days (texts yyyy.MM.dd, empty for no
    // bound), as the navigator reads them by dates alone.
    QStringList OperationsBetween(const QString& from, const QString& to) {
        return Operations(Groups()->GetOrvoObjectList(GroupOid(), from, to));
    }

    static QStringList Operations(const RecordsetPtr& rs) {
        QStringList oidrs;
        if (!rs)
            return oidrs;
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            const QString oidr = rs->Field(QStringLiteral("OIDR")).toString();
            if (!oidr.startsWith(QLatin1String("O0201400")))
                oidrs.append(oidr);
        }
        return oidrs;
    }

    static QStringList Operations(const QTreeWidgetItem* list) {
        QStringList oidrs;
        for (const QTreeWidgetItem* row : Rows(list)) {
            const QString oidr = row->data(0, HostTree::OidRole).toString();
            if (!oidr.startsWith(QLatin1String("O0201400")))
                oidrs.append(oidr);
        }
        return oidrs;
    }

    // The group's row in the tree, opened, with the groups above it opened; null when not
    // found.
    QTreeWidgetItem* GroupRow() {
        QTreeWidgetItem* groups = Node(QStringLiteral("Finansinių operacijų apskaita"));
        if (!groups)
            return nullptr;
        QList<QTreeWidgetItem*> walk{groups};
        while (!walk.isEmpty()) {
            QTreeWidgetItem* item = walk.takeFirst();
            item->setExpanded(true);
            for (QTreeWidgetItem* row : Rows(item)) {
                const QString oid = row->data(0, HostTree::OidRole).toString();
                if (oid == GroupOid()) {
                    row->setExpanded(true);
                    return row;
                }
                if (oid.startsWith(QLatin1String("O0201400")))
                    walk.append(row);
            }
        }
        return nullptr;
    }

    static QString Day(const QDate& date) { return date.toString(QStringLiteral("yyyy.MM.dd")); }

    ValueResult Shell(const QString& operation) {
        return session_->Shell()->Methods(operation, {Value(GroupOid())});
    }

    QString StoredPeriod() {
        return session_->Services()->SettingsService()->GetSetting(ViewPeriod::SettingsSection(),
                                                                   ViewPeriod::SettingsKey());
    }

    QString groupId_;
    QList<QDate> days_;
};

} // namespace orvo::ui::testing
