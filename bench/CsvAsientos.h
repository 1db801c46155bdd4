#pragma once
// The CSV file the import benchmarks read, in the layout quilmar-cli importar reads: two to four
// lines an entry (about 262,500 lines for 100,000 entries).

#include <QByteArray>
#include <QFile>
#include <QString>

// False when the file cannot be written.
inline bool EscribirCsvAsientos(const QString& ruta, int asientos) {
    QFile f(ruta);
    if (!f.open(QIODevice::WriteOnly))
        return false;
    QByteArray b = "NAs;NAp;Fecha;NCuenta;Concepto;Debe;Haber;Documento\n";
    const char* debe[] = {"660000044", "157000001", "157200003"};
    const int forma[] = {2, 3, 2, 3, 2, 3, 4, 2};
    const auto importe = [](double v) {
        return QByteArray::number(v, 'f', 2).replace('.', ',');
    };
    for (int i = 1; i <= asientos; ++i) {
        const int n = forma[i % 8];
        const QByteArray fecha =
            QStringLiteral("%1/%2/2024").arg(1 + i % 28).arg(1 + i % 12).toUtf8();
        const double a = (i % 997) / 4.0 + 1;
        for (int k = 0; k < n - 1; ++k)
            b += QByteArray::number(i) + ';' + QByteArray::number(k + 1) + ';' + fecha + ';' +
                 debe[k] + ";Asiento " + QByteArray::number(i) + ';' + importe(a) + ";;D" +
                 QByteArray::number(i) + '\n';
        b += QByteArray::number(i) + ';' + QByteArray::number(n) + ';' + fecha +
             ";370000066;Asiento " + QByteArray::number(i) + ";;" + importe(a * (n - 1)) + ";D" +
             QByteArray::number(i) + '\n';
    }
    return f.write(b) == b.size();
}
