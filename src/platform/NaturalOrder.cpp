#include "platform/NaturalOrder.h"

#include "platform/UserEnvironment.h"

#include <unicode/coll.h>
#include <unicode/stringpiece.h>

#include <cassert>
#include <cstdint>
#include <utility>

namespace ospra {

namespace {

/// A collator that is not changed any more may be asked by several threads at once.
class CollatorOrder final : public NaturalOrder {
public:
    explicit CollatorOrder(std::unique_ptr<const icu::Collator> collator) : m_collator(std::move(collator)) {}

    std::weak_ordering compare(std::string_view a, std::string_view b) const override
    {
        UErrorCode status = U_ZERO_ERROR;
        const UCollationResult result = m_collator->compareUTF8(pieceOf(a), pieceOf(b), status);
        if (U_FAILURE(status) != 0)
            return a <=> b;
        return result <=> 0;
    }

private:
    static icu::StringPiece pieceOf(std::string_view text)
    {
        return {text.data(), static_cast<std::int32_t>(text.size())};
    }

    std::unique_ptr<const icu::Collator> m_collator;
};

} // namespace

std::shared_ptr<const NaturalOrder> makeNaturalOrder(const std::string& locale)
{
    const std::string name = locale.empty() ? userLocale("LC_COLLATE") : canonicalLocale(locale.c_str());
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(icu::Locale(name.c_str()), status));
    assert(U_SUCCESS(status) != 0 && collator);
    collator->setStrength(icu::Collator::TERTIARY);
    collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
    assert(U_SUCCESS(status) != 0);
    return std::make_shared<CollatorOrder>(std::move(collator));
}

} // namespace ospra
