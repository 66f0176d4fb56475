#pragma once

#include <cstddef>
#include <iterator>
#include <map>

namespace ospra {

/// Spans that were asked for, by their beginning, with the last one at hand.
template <typename Span, typename Place>
class SpanCache {
public:
    /// @return null if no span that holds the place is known
    const Span* find(Place place)
    {
        if (m_last != nullptr && m_last->holds(place))
            return m_last;
        const auto after = m_spans.upper_bound(place);
        if (after == m_spans.begin() || !std::prev(after)->second.holds(place))
            return nullptr;
        m_last = &std::prev(after)->second;
        return m_last;
    }
    const Span& insert(const Span& span)
    {
        if (m_spans.size() >= mostSpans)
            m_spans.clear();
        m_last = &m_spans.insert_or_assign(span.begin, span).first->second;
        return *m_last;
    }

private:
    static constexpr std::size_t mostSpans = 512; // dates over centuries would otherwise pile up

    std::map<Place, Span> m_spans;
    const Span* m_last = nullptr;
};

} // namespace ospra
