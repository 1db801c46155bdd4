// A close with transfer killed (SIGKILL) at each stage of its work leaves both exercises as they
// were; killed right after it returns, both as a whole close leaves them. The kill points are the
// close's own progress reports, so the test runs the same on files and on a server, and what it
// asserts does not depend on when the other side notices the dead process.

#include "Entorno.h"
#include "HuellaCierre.h"
#include "ServidorPruebas.h"
#include "posting/ComunAsientos.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "yearend/Cierre.h"
#include "yearend/InvertirCierre.h"

#include <QElapsedTimer>
#include <QThread>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace cuentas;

namespace {

const QString Capital = "010000004";

// Everything a close writes in one exercise, with the checks that hold in any state: Mayor equal
// to the journal, every entry balanced, the flags naming the closing entries present.
QString Huella(const Sesion& sesion, int ano) {
    Sesion s = sesion;
    s.AnoActual = static_cast<qint16>(ano);
    Conexion c = AbrirDatos(s);
    const QString h = HuellaCierre(c, {}, std::to_string(ano)).texto;
    QSqlQuery q = c.ejecutar("SELECT NCuenta FROM Cuentas ORDER BY NCuenta");
    QStringList cuentas;
    while (q.next())
        cuentas << q.value(0).toString();
    return h + cuentas.join(',');
}

QString Ambos(const Sesion& s) {
    return Huella(s, 2026) + " | " + Huella(s, 2027);
}

// On a server the dead client's transaction ends when its backend sees the connection gone; the
// next close waits for that (its lock) anyway, but the test waits here so that a backend that
// never lets go is a failure of its own, told as such.
void EsperarSinEscritores(const Sesion& s) {
    if (!s.enServidor())
        return;
    Conexion c = AbrirAvisos(s);
    QElapsedTimer reloj;
    reloj.start();
    while (c.existe("SELECT 1 FROM pg_locks l JOIN pg_database b ON b.oid = l.database WHERE "
                    "l.locktype = 'advisory' AND b.datname = current_database()")) {
        ASSERT_LT(reloj.elapsed(), 60000) << "the dead close still holds its lock";
        QThread::msleep(20);
    }
}

// Runs the close in a child that kills itself at the n-th progress report, or just after the
// close returns when there are fewer. True when it died at a report.
bool CerrarYMorir(const Sesion& s, const Traspaso& traspaso, int n) {
    const pid_t hijo = fork();
    if (hijo == 0) {
        Sesion copia = s;
        int informes = 0;
        try {
            CerrarEjercicio(copia, traspaso, [&](const QString&, qint64, qint64) {
                if (++informes == n)
                    raise(SIGKILL);
            });
        } catch (...) {
            _exit(3);
        }
        // The close has returned: committed. Dying now must change nothing of it.
        raise(SIGUSR1);
        _exit(4);
    }
    EXPECT_GE(hijo, 0);
    int estado = 0;
    EXPECT_EQ(waitpid(hijo, &estado, 0), hijo);
    EXPECT_TRUE(WIFSIGNALED(estado)) << "the child ended on its own, status " << estado;
    return WIFSIGNALED(estado) && WTERMSIG(estado) == SIGKILL;
}

} // namespace

TEST(MatarCierre, ConTraspasoCadaEtapaDejaAntesYLaVueltaDespues) {
    Entorno e;
    e.instalarDemo();
    const Sesion s2026 = e.sesion;
    // The target year with an opening entry to be replaced and an ordinary entry to be kept.
    CrearEjercicio(e.sesion, e.dialogo, 2027);
    {
        Conexion c = e.datos();
        OpcionesEscritura o;
        o.Clase = "I";
        EscribirAsiento(c, e.sesion, QDate(2027, 1, 1),
                        {Debe(Caja, 80, ConceptoInicial), Haber(Capital, 80, ConceptoInicial)}, o);
        EscribirAsiento(c, e.sesion, QDate(2027, 1, 15), {Debe(Banco, 25), Haber(Caja, 25)});
    }
    e.sesion = s2026;
    const Traspaso traspaso{2027, 1};
    const QString antes = Ambos(e.sesion);
    ASSERT_FALSE(HasFailure());

    // Kill points: each progress report of the close, in order (its stages, all inside the one
    // transaction), until one run gets through them all and dies after returning.
    int muertesAntes = 0;
    int n = 1;
    for (; n < 50; ++n) {
        SCOPED_TRACE("muerte en el informe " + std::to_string(n));
        const bool enInforme = CerrarYMorir(e.sesion, traspaso, n);
        EsperarSinEscritores(e.sesion);
        if (!enInforme)
            break;
        EXPECT_EQ(Ambos(e.sesion), antes);
        ++muertesAntes;
    }
    // Regularisation, final and opening entries, each begun and ended.
    EXPECT_GE(muertesAntes, 6);
    ASSERT_LT(n, 50);

    // The run that got through: both exercises as a close leaves them.
    const QString despues = Ambos(e.sesion);
    ASSERT_NE(despues, antes);
    Sesion s = e.sesion;
    CargarEjercicio(s);
    EXPECT_TRUE(s.EjCerrado);
    EXPECT_GT(s.NAsReg, 0);
    EXPECT_GT(s.NAsFin, s.NAsReg);
    {
        Sesion s2027 = e.sesion;
        s2027.AnoActual = 2027;
        Conexion c = AbrirDatos(s2027);
        // The old opening entry replaced by the balances of 2026; the ordinary entry kept.
        EXPECT_EQ(c.escalar("SELECT COUNT(DISTINCT Clase) FROM Diario WHERE NAs = 1").toInt(), 1);
        EXPECT_EQ(c.escalar("SELECT MIN(Clase) FROM Diario WHERE NAs = 1").toString(), "I");
        EXPECT_GT(c.escalar("SELECT COUNT(*) FROM Diario WHERE NAs = 1").toInt(), 2);
        EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM Diario WHERE NAs = 2").toInt(), 2);
    }

    // Reversing the close gives 2026 back as it was; closing again writes the same.
    InvertirCierre(s);
    EXPECT_EQ(Huella(s, 2026), antes.section(" | ", 0, 0));
    CerrarEjercicio(s, traspaso);
    EXPECT_EQ(Ambos(s), despues);
}
