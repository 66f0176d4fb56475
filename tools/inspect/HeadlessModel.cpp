#include "tools/inspect/HeadlessModel.h"

#include "platform/MemorySettingsStore.h"

namespace ospra {

HeadlessModel::HeadlessModel() : m_mailbox(std::make_shared<Mailbox>([this] { m_mail.release(); }))
{
    m_model = std::make_unique<OspraModel>(ModelServices{.settings = std::make_shared<MemorySettingsStore>(),
                                                         .folders = makeFolderAccess(),
                                                         .pool = std::make_shared<TaskPool>(1),
                                                         .mailbox = m_mailbox,
                                                         .names = makeNaturalOrder()});
}

void HeadlessModel::waitUntilLoaded()
{
    while (m_model->isLoading()) {
        m_mail.acquire();
        m_mailbox->drain();
    }
}

} // namespace ospra
