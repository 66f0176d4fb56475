#include "workspace/ModelList.h"

#include "core/replaceSource.h"

namespace ospra {

void ModelList::setSource(OspraModel* source)
{
    if (!replaceSource(m_source, source, this))
        return;
    if (m_source)
        follow(*m_source);
    readSource();
    emit sourceChanged();
}

} // namespace ospra
