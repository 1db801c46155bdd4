// The fixed-record lists Selan.dat and Nemp.dat as they may be found on disk: any bytes are read
// without fault, and what is read, written back, reads the same.

#include "Comun.h"
#include "store/ListasEmpresas.h"

#include <QFile>
#include <QTemporaryDir>

namespace {

bool escribir(const QString& ruta, const QByteArray& b) {
    QFile f(ruta);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(b) == b.size();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t largo) {
    fuzz::ArrancarQt();
    static QTemporaryDir dir;
    const QByteArray bytes(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(largo));
    const QString entrada = QString::fromLatin1(bytes.toHex());
    const QString selan = dir.filePath(QStringLiteral("Selan.dat"));
    const QString nemp = dir.filePath(QStringLiteral("Nemp.dat"));
    if (!escribir(selan, bytes) || !escribir(nemp, bytes))
        return 0;

    const QList<RegistroSelan> s = LeerSelan(selan);
    if (s.size() != bytes.size() / 37)
        fuzz::Fallo("Selan.dat: un registro por cada 37 bytes", entrada);
    EscribirSelan(selan, s);
    const QList<RegistroSelan> s2 = LeerSelan(selan);
    if (s2.size() != s.size())
        fuzz::Fallo("Selan.dat: reescrito tiene los mismos registros", entrada);
    for (int i = 0; i < s.size(); ++i)
        if (s2[i].Ano != s[i].Ano || s2[i].Codigo != s[i].Codigo || s2[i].Nombre != s[i].Nombre)
            fuzz::Fallo("Selan.dat: reescrito se lee igual", entrada);

    const QList<RegistroNemp> n = LeerNemp(nemp);
    if (n.size() != bytes.size() / 33)
        fuzz::Fallo("Nemp.dat: un registro por cada 33 bytes", entrada);
    EscribirNemp(nemp, n);
    const QList<RegistroNemp> n2 = LeerNemp(nemp);
    if (n2.size() != n.size())
        fuzz::Fallo("Nemp.dat: reescrito tiene los mismos registros", entrada);
    for (int i = 0; i < n.size(); ++i)
        if (n2[i].Codigo != n[i].Codigo || n2[i].Nombre != n[i].Nombre)
            fuzz::Fallo("Nemp.dat: reescrito se lee igual", entrada);
    return 0;
}
