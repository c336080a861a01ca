#include "Appearance/ListNames.h"

#include "support/TestSupport.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFormLayout>

using namespace Qt::StringLiterals;

TEST(ListNames, AreThoseOfTheBoxes)
{
    testing_support::needApplication();
    QWidget window;
    auto *const layout = new QFormLayout(&window);
    auto *const labelled = new QComboBox;
    layout->addRow(u"&Type:"_s, labelled);
    auto *const named = new QComboBox;
    named->setAccessibleName(u"Comparison"_s);
    layout->addRow(named);
    ListNames::give(&window);
    EXPECT_EQ(labelled->view()->accessibleName(), u"Type:"_s);
    EXPECT_EQ(named->view()->accessibleName(), u"Comparison"_s);
}
