#pragma once
// What a close changes in one exercise, for the tests that kill a close and compare the states
// before and after.

#include "journal/Escritor.h"
#include "platform/Almacen.h"

#include <QSqlQuery>
#include <QStringList>
#include <gtest/gtest.h>

struct HuellaEjercicio {
    QString texto; // flags, then class, number, line count and debit sum of each entry
    bool cerrado = false;
    long reg = 0, fin = 0;
};

// The flags of Empresa and the entries of the journal (those `filtro`, a WHERE clause, lets
// through), with the checks that hold in any state: Mayor equal to the journal, every entry
// balanced, the flags naming the closing entries present and only those. `donde` names the
// exercise in the failures.
inline HuellaEjercicio HuellaCierre(Conexion& c, const QString& filtro, const std::string& donde) {
    HuellaEjercicio r;
    EXPECT_TRUE(DescuadresMayor(c).isEmpty()) << donde;
    QSqlQuery q = c.ejecutar("SELECT EjCerrado, NAsReg, NAsFin FROM Empresa");
    q.next();
    r.cerrado = q.value(0).toInt() != 0;
    r.reg = q.value(1).toLongLong();
    r.fin = q.value(2).toLongLong();
    q.finish();
    r.texto = QStringLiteral("%1 %2 %3;").arg(r.cerrado).arg(r.reg).arg(r.fin);
    QStringList regularizacion, final;
    q = c.ejecutar("SELECT NAs, Clase, COUNT(*), round(SUM(Debe), 2), round(SUM(Haber), 2) FROM "
                   "Diario " +
                   filtro + " GROUP BY NAs, Clase ORDER BY NAs, Clase");
    while (q.next()) {
        const long nas = q.value(0).toLongLong();
        const QString clase = q.value(1).toString();
        EXPECT_EQ(q.value(3).toDouble(), q.value(4).toDouble())
            << "half of entry " << nas << " in " << donde;
        if (clase == "R")
            regularizacion << QString::number(nas);
        if (clase == "F")
            final << QString::number(nas);
        r.texto += QStringLiteral("%1%2:%3 %4;")
                       .arg(clase)
                       .arg(nas)
                       .arg(q.value(2).toLongLong())
                       .arg(q.value(3).toDouble());
    }
    EXPECT_EQ(regularizacion,
              r.cerrado && r.reg ? QStringList{QString::number(r.reg)} : QStringList());
    EXPECT_EQ(final, r.cerrado && r.fin ? QStringList{QString::number(r.fin)} : QStringList());
    return r;
}
