#include <KTUtility/NSURL>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

using testing_support::rowsOf;

TEST(NSURLTable, EveryRowIsAcceptedOrNot)
{
    for (const QJsonObject &row : rowsOf(u"platform/url_parse.jsonl"_s)) {
        const QString text = row.value(u"input"_s).toString(QString());
        const auto url = NSURL::URLWithString(text);
        EXPECT_EQ(url.has_value(), row.value(u"accepted"_s).toBool()) << text.toStdString();
        if (url) {
            EXPECT_EQ(url->absoluteString(), text);
            if (row.contains(u"scheme"_s)) {
                EXPECT_EQ(url->scheme(), row.value(u"scheme"_s).toString(QString()));
            }
        }
    }
}
