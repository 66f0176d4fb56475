#include "workspace/ModelList.h"

namespace ospra {

void ModelList::setSource(OspraModel* source)
{
    if (m_source == source)
        return;
    if (m_source)
        m_source->disconnect(this);
    m_source = source;
    if (m_source)
        follow(*m_source);
    readSource();
    emit sourceChanged();
}

} // namespace ospra
