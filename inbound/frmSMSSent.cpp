#include "inbound/frmSMSSent.h"

#include "data/Criteria.h"
#include "data/Module1.h"

frmSMSSent::frmSMSSent(const BrowserTools &tools) : RecordBrowser(kSMSSentTable, tools) {}

Query frmSMSSent::query() const
{
    Query query = RecordBrowser::query();
    const QString state = QStringLiteral("CMGS");
    query.filter = module_.SmsListSent ? differs(state) + QStringLiteral(" AND ") + differs(state)
                                       : equals(state) + QStringLiteral(" OR ") + equals(state);
    query.values = {QStringLiteral("UNSENT"), QStringLiteral("SLETTET")};
    return query;
}
