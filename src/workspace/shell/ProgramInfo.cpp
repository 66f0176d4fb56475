#include "workspace/shell/ProgramInfo.h"

#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>

#include <protozero/version.hpp>
#include <unicode/uvernum.h>

namespace ospra {

QString ProgramInfo::version() const
{
    return QCoreApplication::applicationVersion();
}

QList<QString> ProgramInfo::libraries() const
{
    return {QStringLiteral("Qt %1 (LGPL 3)").arg(QLatin1String(qVersion())),
            QStringLiteral("ICU " U_ICU_VERSION " (Unicode License)"),
            QStringLiteral("protozero " PROTOZERO_VERSION_STRING " (BSD 2-Clause)")};
}

QString ProgramInfo::licence() const
{
    QFile file(QStringLiteral(":/qt/qml/Ospra/Workspace/LICENSE"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    // The lines of the file are broken for its own width; here only paragraphs are.
    static const QRegularExpression lineBreak(QStringLiteral(R"((?<!\n)\n(?!\n|\z))"));
    return QString::fromUtf8(file.readAll()).replace(lineBreak, QStringLiteral(" ")).trimmed();
}

} // namespace ospra
