#include "core/window_query.h"

namespace {

class NoOtherWindows final : public WindowQuery
{
public:
    int checkAlreadyOpen(QObject *, const QString &, const QString &, const QString &) override
    {
        return 0;
    }
};

NoOtherWindows defaultQuery;
WindowQuery *current = &defaultQuery;

} // namespace

WindowQuery *windowQuery()
{
    return current;
}

void setWindowQuery(WindowQuery *query)
{
    current = query ? query : &defaultQuery;
}
