#pragma once

#include "core/OspraModel.h"

#include <QQmlEngine>

namespace ospra {

/// Makes the model known to QML, where it comes in as a typed property and is never created.
struct OspraModelForeign {
    Q_GADGET
    QML_FOREIGN(ospra::OspraModel)
    QML_NAMED_ELEMENT(OspraModel)
    QML_UNCREATABLE("The program has one model, which it hands to its window.")
};

} // namespace ospra
