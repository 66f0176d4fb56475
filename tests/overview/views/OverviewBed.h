#pragma once

#include "overview/views/OverviewState.h"
#include "tests/core/ModelTestBed.h"
#include "tests/overview/OverviewSupport.h"

#include <initializer_list>

namespace ospra {

/// The overview of a model with jumps at these moments, in the range of all time.
class OverviewBed {
public:
    explicit OverviewBed(std::initializer_list<Instant> dates)
    {
        int number = 0;
        for (const Instant date : dates)
            m_bed.addLog("Logbook", "jump " + std::to_string(++number) + ".csv", shortJump(date));
        m_bed.model().openFolder(m_bed.folder("Logbook"));
        m_bed.settle();
        m_bed.model().setOverviewTimeRange(OverviewTimeRange::all);
        m_state.setSource(&m_bed.model());
    }

    [[nodiscard]] OspraModel& model() { return m_bed.model(); }
    [[nodiscard]] OverviewState& state() { return m_state; }
    void settle() { m_bed.settle(); }

private:
    static JumpPlan shortJump(Instant start)
    {
        return {.rate = 1.0, .climbSeconds = 30.0, .groundSeconds = 5.0, .startSeconds = start.seconds};
    }

    ModelTestBed m_bed;
    OverviewState m_state;
};

} // namespace ospra
