#pragma once

#include "browsers/RecordBrowser.h"

#include <functional>

class QTabBar;

/// The doors that the operator may see, on tabs by building. The row that the list stands on is the
/// current door of the whole program; what may be done to it goes by level.
class frmKEY : public RecordBrowser {
    Q_OBJECT
public:
    /// openProperties opens the configuration of the current door.
    frmKEY(const BrowserTools &tools, std::function<void()> openProperties);

protected:
    Query query() const override;
    qint64 startRow() override;
    void loaded() override;
    void designCaptions() override;
    void rowChanged() override;
    void newRowBegun(int column) override;
    void checkRow(int row) const override;
    void rowSaved() override;
    void cmdDelete_Click() override;
    void cellDoubleClicked() override;
    bool isEditable(const BrowserColumn &column) const override;
    bool addsRows() const override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isLevel(QStringView levels) const;
    void buildTabs();
    void TabStrip1_Click(int tab);
    void deleteAll(const QString &table, const QString &column, const QString &door,
                   const QString &further = {}, const QVariantList &values = {});
    void showTab(int tab, const QString &building);

    std::function<void()> openProperties_;
    QTabBar *TabStrip1;
    QString selectedTab_; ///< survives a reload; empty for the tab of all
};
