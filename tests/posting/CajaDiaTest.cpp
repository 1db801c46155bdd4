// The day-cash pad: adding with its checks, the entries it sends (lines in the order of the
// accounts), what each choice sends, and that a movement is never both in the pad and in the
// journal, nor in neither, whatever stops the run.

#include "posting/CajaDia.h"
#include "ComunAsientos.h"
#include "platform/ImpresoraGrabadora.h"
#include "posting/ImpresionCajaDia.h"
#include "store/Conexiones.h"
#include "store/Rutinas.h"

#include <QSqlQuery>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace cuentas;

namespace {

class CajaDelDia : public ::testing::Test {
protected:
    void SetUp() override { e.crearEmpresa(); }

    CamposCaja mov(bool cobro, const QString& importe, const QString& concepto = {},
                   const QDate& fecha = QDate(2024, 5, 10), const QString& otra = Ventas) {
        return {fecha, cobro, Caja, otra, importe, concepto, "T-1", {}};
    }
    long anadir(const CamposCaja& m) {
        const std::optional<long> n = k.Anadir(m);
        EXPECT_TRUE(n) << e.dialogo.informados.join('|').toStdString();
        return n.value_or(0);
    }
    QList<long> pad() {
        Conexion c = e.datos();
        QList<long> r;
        for (const MovimientoCaja& m : LeerCajaDia(c))
            r << m.Numero;
        return r;
    }
    // "NAp NCuenta Debe/Haber Concepto" of an entry.
    QStringList asiento(long nas) {
        Conexion c = e.datos();
        return Filas(c,
                     "SELECT NAp, NCuenta, Debe, Haber, Concepto, Documento FROM Diario WHERE "
                     "NAs = ? ORDER BY NAp",
                     {static_cast<qlonglong>(nas)});
    }

    Entorno e;
    CajaDia k{e.sesion, e.dialogo};
};

TEST_F(CajaDelDia, CobroYPagoEscribenLaCuentaDeTrabajoPrimero) {
    anadir(mov(true, "50"));
    anadir(mov(false, "30,25", "Compra de sellos", QDate(2024, 5, 11), Compras));
    e.dialogo.responder({true});
    const ResultadoPasar r = k.PasarAlDiario({ModoPasar::Todas, {}, {}, {}});
    ASSERT_EQ(r.pasados, 2) << e.dialogo.informados.join('|').toStdString();
    EXPECT_EQ(e.dialogo.preguntas,
              QStringList({"Está seguro de que desea traspasar al Diario todos los apuntes?"}));
    EXPECT_EQ(r.asientos, QList<long>({1, 2}));
    // A taking: the cash subaccount's debit at NAp 1. A payment: the cash subaccount's credit at
    // NAp 1, before the debit line, not debit first.
    EXPECT_EQ(asiento(1), QStringList({"1|" + Caja + "|50|0|Cobro del día|T-1",
                                       "2|" + Ventas + "|0|50|Cobro del día|T-1"}));
    EXPECT_EQ(asiento(2), QStringList({"1|" + Caja + "|0|30.25|Compra de sellos|T-1",
                                       "2|" + Compras + "|30.25|0|Compra de sellos|T-1"}));
    Conexion c = e.datos();
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM DatosIVA"), 0);
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM Diario WHERE IdIVA <> 0"), 0);
    EXPECT_EQ(c.escalar("SELECT Fecha FROM Diario WHERE NAs = 2").toString(), "2024-05-11");
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
    EXPECT_EQ(c.escalar("SELECT SaldoD - SaldoH FROM Mayor WHERE NCuenta = ?", {Caja}).toDouble(),
              19.75);
    EXPECT_TRUE(pad().isEmpty()) << "rows leave the pad once posted";
}

TEST_F(CajaDelDia, ComprobacionesAlAnadirEnOrden) {
    struct Caso {
        CamposCaja m;
        QString mensaje;
    };
    CamposCaja sinTrabajo = mov(true, "5"), sinOrigen = mov(true, "5"), igual = mov(true, "5"),
               fuera = mov(true, "5", {}, QDate(2025, 1, 1)), desconocida = mov(true, "5"),
               largo = mov(true, "5", QString(41, 'x'));
    sinTrabajo.ncuenta1.clear();
    sinTrabajo.ncuenta2.clear();
    sinOrigen.ncuenta2 = "  ";
    igual.ncuenta2 = Caja;
    desconocida.ncuenta2 = "370999999";
    const Caso casos[] = {
        {sinTrabajo, MsgFaltaTrabajo},
        {sinOrigen, MsgFaltaOrigen},
        {mov(true, ""), MsgFaltaImporte},
        {mov(true, "0,00"), MsgFaltaImporte},
        {mov(true, "1e308"), MsgImporteNoValido("1e308")},
        {mov(true, "12abc"), MsgImporteNoValido("12abc")},
        {mov(true, "-5"), "El importe tiene que ser mayor que cero: elija Cobro o Pago."},
        {fuera, "La fecha introducida no pertenece al año de trabajo."},
        {igual, "La Subcuenta de trabajo y la de origen/destino tienen que ser distintas."},
        {largo, "El campo Concepto no puede tener más de 40 caracteres."},
        {desconocida, "No existe la subcuenta 370999999."},
    };
    for (const Caso& c : casos) {
        e.dialogo.informados.clear();
        EXPECT_FALSE(k.Anadir(c.m)) << c.mensaje.toStdString();
        EXPECT_EQ(e.dialogo.informados, QStringList({c.mensaje}));
    }
    EXPECT_TRUE(pad().isEmpty());

    // Numbers: the highest + 1, so a number freed at the end is given again.
    EXPECT_EQ(anadir(mov(true, "1")), 1);
    EXPECT_EQ(anadir(mov(true, "2")), 2);
    e.dialogo.responder({true});
    ASSERT_TRUE(k.Eliminar(2));
    EXPECT_EQ(e.dialogo.preguntas.last(), "Está seguro de que desea eliminar el apunte Nº 2?");
    EXPECT_EQ(anadir(mov(false, "3")), 2);
    Conexion c = e.datos();
    EXPECT_EQ(Filas(c, "SELECT \"Nº\", CP, Concepto, Importe FROM DelDia ORDER BY 1"),
              QStringList({"1|Cobro|Cobro del día|1", "2|Pago|Pago del día|3"}));

    // Changing asks, after the same checks.
    e.dialogo.preguntas.clear();
    EXPECT_FALSE(k.Modificar(1, mov(true, "")));
    EXPECT_TRUE(e.dialogo.preguntas.isEmpty());
    e.dialogo.responder({true});
    ASSERT_TRUE(k.Modificar(1, mov(true, "7,5", "Venta")));
    EXPECT_EQ(e.dialogo.preguntas.last(), "Está seguro de que desea modificar el apunte Nº 1?");
    EXPECT_EQ(Filas(c, "SELECT Concepto, Importe FROM DelDia WHERE \"Nº\" = 1"),
              QStringList({"Venta|7.5"}));
}

TEST_F(CajaDelDia, PunteadasYEntreFechas) {
    for (int dia = 1; dia <= 6; ++dia)
        anadir(mov(true, QString::number(dia), {}, QDate(2024, 6, dia)));
    // Ticked rows 2, 4 and 5: three entries with consecutive numbers, the rest stay.
    e.dialogo.responder({true});
    ResultadoPasar r = k.PasarAlDiario({ModoPasar::Punteadas, {2, 4, 5}, {}, {}});
    EXPECT_EQ(r.asientos, QList<long>({1, 2, 3}));
    EXPECT_EQ(e.dialogo.preguntas.last(),
              "Está seguro de que desea traspasar al Diario los apuntes que se han punteado?");
    EXPECT_EQ(pad(), QList<long>({1, 3, 6}));
    EXPECT_EQ(asiento(3).first(), "1|" + Caja + "|5|0|Cobro del día|T-1");

    // Between two dates, both included.
    e.dialogo.responder({true});
    r = k.PasarAlDiario({ModoPasar::EntreFechas, {}, QDate(2024, 6, 3), QDate(2024, 6, 6)});
    EXPECT_EQ(r.pasados, 2);
    EXPECT_EQ(pad(), QList<long>({1}));
    EXPECT_EQ(e.dialogo.preguntas.last(), "Está seguro de que desea traspasar al Diario los "
                                          "apuntes comprendidos entre las fechas seleccionadas?");

    // Answering No, reversed dates or a closed exercise send nothing.
    r = k.PasarAlDiario({ModoPasar::Todas, {}, {}, {}});
    EXPECT_FALSE(r.empezado);
    e.dialogo.responder({true});
    r = k.PasarAlDiario({ModoPasar::EntreFechas, {}, QDate(2024, 6, 6), QDate(2024, 6, 1)});
    EXPECT_FALSE(r.empezado);
    EXPECT_EQ(e.dialogo.informados.last(), "La fecha inicial debe ser menor o igual que la final.");
    {
        Conexion c = e.datos();
        c.ejecutar("UPDATE Empresa SET EjCerrado = -1");
    }
    e.dialogo.responder({true});
    EXPECT_FALSE(k.PasarAlDiario({ModoPasar::Todas, {}, {}, {}}).empezado);
    EXPECT_EQ(e.dialogo.informados.last(), MsgEjercicioCerrado);
    EXPECT_EQ(pad(), QList<long>({1}));
}

TEST_F(CajaDelDia, UnFalloDetieneElEnvioSinDuplicarNiPerder) {
    for (int i = 1; i <= 4; ++i)
        anadir(mov(true, QString::number(i * 10)));
    {
        // The third movement's other subaccount left the chart meanwhile.
        Conexion c = e.datos();
        c.ejecutar("UPDATE DelDia SET NCuenta2 = '370999999' WHERE \"Nº\" = 3");
    }
    e.dialogo.responder({true});
    const ResultadoPasar r = k.PasarAlDiario({ModoPasar::Todas, {}, {}, {}});
    EXPECT_EQ(r.pasados, 2);
    EXPECT_EQ(r.pendientes, 2);
    EXPECT_EQ(r.error, "No existe la subcuenta 370999999.");
    EXPECT_EQ(e.dialogo.informados.last(), r.error);
    EXPECT_EQ(pad(), QList<long>({3, 4}));
    Conexion c = e.datos();
    EXPECT_EQ(Contar(c, "SELECT COUNT(DISTINCT NAs) FROM Diario"), 2);
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
}

// Each movement: in the pad (its row) or in the journal (its two lines, by its document), and
// never both nor neither. The journal's totals stay equal to its lines.
void ComprobarUnaVez(Entorno& e, int total) {
    Conexion c = e.datos();
    for (int n = 1; n <= total; ++n) {
        const int enPad =
            Contar(c, QStringLiteral("SELECT COUNT(*) FROM DelDia WHERE \"Nº\" = %1").arg(n));
        const int lineas =
            Contar(c, QStringLiteral("SELECT COUNT(*) FROM Diario WHERE Documento = 'M%1'").arg(n));
        EXPECT_TRUE((enPad == 1 && lineas == 0) || (enPad == 0 && lineas == 2))
            << "movement " << n << ": pad " << enPad << ", journal lines " << lineas;
    }
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
}

// Sends fifty movements in a child process that is killed (SIGKILL) at a given point: inside
// the transaction of movement `corte`, once its entry is written and its row deleted, or after
// the commit of movement `corte`. Returns how the child ended.
int EnviarYMatar(Entorno& e, int corte, bool dentro) {
    const pid_t hijo = fork();
    if (hijo == 0) {
        DialogoGuion d;
        d.responder({true});
        Sesion s = e.sesion;
        CajaDia k(s, d);
        k.PasarAlDiario(
            {ModoPasar::Todas, {}, {}, {}},
            [&](qint64 hechos, qint64) {
                if (!dentro && hechos == corte)
                    raise(SIGKILL);
            },
            [&](long numero) {
                if (dentro && numero == corte)
                    raise(SIGKILL);
            });
        _exit(3); // the kill point was never reached
    }
    int estado = 0;
    waitpid(hijo, &estado, 0);
    return estado;
}

TEST_F(CajaDelDia, MatarElEnvioDejaCadaMovimientoEnUnSitio) {
    const int total = 50;
    for (int n = 1; n <= total; ++n) {
        CamposCaja m =
            mov(n % 3 != 0, QStringLiteral("%1,%2").arg(n).arg(n % 100, 2, 10, QLatin1Char('0')));
        m.documento = QStringLiteral("M%1").arg(n);
        ASSERT_EQ(anadir(m), n);
    }
    // Killed inside the 20th movement's transaction: 19 sent, the 20th rolled back whole.
    int estado = EnviarYMatar(e, 20, true);
    ASSERT_TRUE(WIFSIGNALED(estado) && WTERMSIG(estado) == SIGKILL) << estado;
    ComprobarUnaVez(e, total);
    EXPECT_EQ(pad().size(), total - 19);

    // Killed after the commit of the 10th of the rest: 10 more sent.
    estado = EnviarYMatar(e, 10, false);
    ASSERT_TRUE(WIFSIGNALED(estado) && WTERMSIG(estado) == SIGKILL) << estado;
    ComprobarUnaVez(e, total);
    EXPECT_EQ(pad().size(), total - 29);

    // Killed inside the last movement: all but one sent.
    estado = EnviarYMatar(e, total, true);
    ASSERT_TRUE(WIFSIGNALED(estado) && WTERMSIG(estado) == SIGKILL) << estado;
    ComprobarUnaVez(e, total);
    EXPECT_EQ(pad(), QList<long>({total}));

    // The run resumed sends what is left, with the next number.
    e.dialogo.responder({true});
    const ResultadoPasar r = k.PasarAlDiario({ModoPasar::Todas, {}, {}, {}});
    EXPECT_EQ(r.pasados, 1);
    ComprobarUnaVez(e, total);
    EXPECT_TRUE(pad().isEmpty());
    Conexion c = e.datos();
    EXPECT_EQ(Contar(c, "SELECT COUNT(DISTINCT NAs) FROM Diario"), total);
    EXPECT_EQ(Contar(c, "SELECT MAX(NAs) FROM Diario"), total) << "no gaps, no number twice";
}

TEST_F(CajaDelDia, HojaImpresaConCabecerasTotalesYNota) {
    anadir(mov(true, "100"));
    anadir(mov(false, "40", "Pago de portes", QDate(2024, 5, 11), Compras));
    anadir(mov(false, "60", "Otro pago", QDate(2024, 5, 12), Compras));
    Rejilla r = RejillaCajaDia();
    {
        Conexion c = e.datos();
        LlenarRejillaCajaDia(LeerCajaDia(c), r);
    }
    OpcionesLibro op;
    op.cancelado = false;
    op.fechaTrabajo = QDate(2024, 5, 31);
    ImpresoraGrabadora imp;
    DibujarCajaDia(imp, r, "Pruebas SL", op);
    ASSERT_EQ(imp.paginas(), 1) << imp.volcado().toStdString();
    const QStringList textos = imp.textosDePagina(1);
    const QStringList cabecera = {"Caja del Día",
                                  "Pruebas SL",
                                  "Fecha: 31/05/2024",
                                  "Fecha",
                                  "C/P",
                                  "Cuenta de trabajo",
                                  "Cta origen/destino",
                                  "Importe",
                                  "Concepto",
                                  "Documento",
                                  "Sector"};
    EXPECT_EQ(textos.mid(0, cabecera.size()), cabecera);
    EXPECT_EQ(textos.mid(cabecera.size(), 7),
              QStringList({"10/05/2024", "Cobro", "Caja", "Ventas de mercaderías", "100,00",
                           "Cobro del día", "T-1"}));
    // The foot: takings, payments, their result at zero, the note and the page number.
    const QStringList pie = textos.mid(textos.size() - 8);
    EXPECT_EQ(pie,
              QStringList({"Cobros . . . . . . . . . . . . .", "100,00",
                           "Pagos . . . . . . . . . . . . . .", "100,00",
                           "Resultado . . . . . . . . . . .", "0,00", NotaCajaDia, "Página nº 1"}));
    const Trazo* nota = imp.buscar(NotaCajaDia);
    ASSERT_TRUE(nota);
    EXPECT_FALSE(nota->negrita);
    EXPECT_GT(nota->y, imp.buscar("Resultado . . . . . . . . . . .")->y);

    // An empty pad prints nothing.
    ImpresoraGrabadora vacia;
    DibujarCajaDia(vacia, RejillaCajaDia(), "Pruebas SL", op);
    EXPECT_EQ(vacia.paginas(), 0);
}

} // namespace
