#pragma once

#include "core/OspraModel.h"

#include <memory>
#include <semaphore>

namespace ospra {

/// The program's model without window, event loop or stored settings.
class HeadlessModel {
public:
    HeadlessModel();

    [[nodiscard]] OspraModel& model() { return *m_model; }
    /// Returns when no scan and no load runs any more.
    void waitUntilLoaded();

private:
    std::binary_semaphore m_mail{0};
    std::shared_ptr<Mailbox> m_mailbox;
    std::unique_ptr<OspraModel> m_model;
};

} // namespace ospra
