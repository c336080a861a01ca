// What must not compile: misspelt members, and types that do not fit. A concept is false where the
// compiler would refuse the expression in it.

#include <KTUtility/KTBinding>
#include <KTUtility/KTObservation>
#include <KTUtility/NSPredicate>
#include <KTUtility/NSSortDescriptor>

#include "support/Reading.h"
#include "support/TestSupport.h"

#include <QLabel>
#include <QSpinBox>

namespace {
using IntCallback = void (*)(const int &, const int &);
using TextCallback = void (*)(const QString &, const QString &);

/// The members of a class as a template sees them.
#define KT_TAKES(name, ...)                                                                        \
    template<typename T>                                                                           \
    concept name = requires(T * record, QSpinBox * box, QLabel * label)                            \
    {                                                                                              \
        __VA_ARGS__;                                                                               \
    }

KT_TAKES(Observes, KT::observe(record, &T::level, IntCallback()));
KT_TAKES(ObservesMisspelt, KT::observe(record, &T::levle, IntCallback()));
KT_TAKES(ObservesOtherType, KT::observe(record, &T::level, TextCallback()));
KT_TAKES(ObservesOtherClass, KT::observe(box, &T::level, IntCallback()));
KT_TAKES(ObservesSetter, KT::observe(record, &T::setLevel, IntCallback()));

KT_TAKES(Binds, KT::bind<&QSpinBox::value, &T::level>(box, record));
KT_TAKES(BindsMisspelt, KT::bind<&QSpinBox::value, &T::levle>(box, record));
KT_TAKES(BindsOtherType, KT::bind<&QSpinBox::value, &T::title>(box, record));
KT_TAKES(BindsNarrower, KT::bind<&QSpinBox::value, &T::rounded>(box, record));
KT_TAKES(BindsOtherClass, KT::bind<&QSpinBox::value, &T::level>(box, label));

KT_TAKES(BindsBySetters,
         KT::bind(box, &QSpinBox::value, &QSpinBox::setValue, record, &T::level, &T::setLevel));
KT_TAKES(BindsByMisspeltSetter,
         KT::bind(box, &QSpinBox::value, &QSpinBox::setValue, record, &T::level, &T::setLevle));
KT_TAKES(BindsByOtherSetter,
         KT::bind(box, &QSpinBox::value, &QSpinBox::setValue, record, &T::level, &T::setTitle));
KT_TAKES(BindsByGetters, KT::bind(box, &QSpinBox::value, record, &T::level));

KT_TAKES(Follows, KT::bind(label, &QLabel::setText, record, &T::title));
KT_TAKES(FollowsOtherType, KT::bind(label, &QLabel::setText, record, &T::level));

KT_TAKES(Sorts, NSSortDescriptor::by(&T::level));
KT_TAKES(SortsMisspelt, NSSortDescriptor::by(&T::levle));
KT_TAKES(SortsBySetter, NSSortDescriptor::by(&T::setLevel));
KT_TAKES(Filters, NSPredicate::where(&T::isValid));
KT_TAKES(FiltersMisspelt, NSPredicate::where(&T::isVlaid));
KT_TAKES(FiltersByText, NSPredicate::where(&T::title));
} // namespace

static_assert(Observes<Reading>);
static_assert(!ObservesMisspelt<Reading>);
static_assert(!ObservesOtherType<Reading>);
static_assert(!ObservesOtherClass<Reading>);
static_assert(!ObservesSetter<Reading>);

static_assert(Binds<Reading>);
static_assert(!BindsMisspelt<Reading>);
static_assert(!BindsOtherType<Reading>);
static_assert(!BindsNarrower<Reading>);
static_assert(!BindsOtherClass<Reading>);

static_assert(BindsBySetters<Reading>);
static_assert(!BindsByMisspeltSetter<Reading>);
static_assert(!BindsByOtherSetter<Reading>);
static_assert(!BindsByGetters<Reading>);

static_assert(Follows<Reading>);
static_assert(!FollowsOtherType<Reading>);

static_assert(Sorts<Reading>);
static_assert(!SortsMisspelt<Reading>);
static_assert(!SortsBySetter<Reading>);
static_assert(Filters<Reading>);
static_assert(!FiltersMisspelt<Reading>);
static_assert(!FiltersByText<Reading>);

TEST(TypedAccess, TakesWhatFits)
{
    // What the concepts above say is decided when this file is compiled.
    const bool takes = Observes<Reading> && Binds<Reading> && BindsBySetters<Reading> &&
                       Follows<Reading> && Sorts<Reading> && Filters<Reading>;
    const bool refuses = !ObservesMisspelt<Reading> && !BindsMisspelt<Reading> &&
                         !SortsMisspelt<Reading> && !FiltersMisspelt<Reading>;
    EXPECT_TRUE(takes);
    EXPECT_TRUE(refuses);
}
