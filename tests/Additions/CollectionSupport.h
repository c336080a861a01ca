#pragma once

#include "support/TestField.h"
#include "support/TestSupport.h"

#include <memory>
#include <vector>

/// Keys of TestField, and one that it does not have.
inline const QString Name = QStringLiteral("name");
inline const QString Size = QStringLiteral("size");
inline const QString Unknown = QStringLiteral("nmae");

using Fields = QList<TestField *>;

/// Fields by name, with their position as size.
class CollectionTest : public testing::Test
{
protected:
    Fields fieldsNamed(const QStringList &names)
    {
        Fields fields;
        for (const QString &name : names) {
            _owned.push_back(std::make_unique<TestField>(name, int(fields.size())));
            fields += _owned.back().get();
        }
        return fields;
    }

private:
    std::vector<std::unique_ptr<TestField>> _owned;

protected:
    Fields abc = fieldsNamed({QStringLiteral("a"), QStringLiteral("b"), QString()});
};
