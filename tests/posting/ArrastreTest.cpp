// The drop of one subaccount onto another: every row of the side table of a new entry, every
// test of an addition to an open entry, the refusals and the edge cases, on the pure decision.

#include "posting/Arrastre.h"
#include "chart/NCuenta.h"
#include "journal/Escritor.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace {

using Accion = DecisionSoltar::Accion;

// One subaccount of each area, and a second one where a test needs two of the same area.
const FilaArea Capital{"Capital social", "010000004"};
const FilaArea Reservas{"Reserva legal", "011200005"};
const FilaArea Banco{"Banco", "157200003"};
const FilaArea Caja{"Caja", "157000001"};
const FilaArea ProveedorA{"Proveedores varios", "240000009"};
const FilaArea ProveedorB{"Acreedores varios", "241000010"};
const FilaArea Ventas{"Ventas de mercaderías", "370000066"};
const FilaArea Servicios{"Prestaciones de servicios", "370500067"};
const FilaArea Cliente{"Clientes varios", "443000022"};
const FilaArea Deudor{"Deudores varios", "444000023"};
const FilaArea Mobiliario{"Mobiliario", "521600034"};
const FilaArea Equipos{"Equipos informáticos", "521700035"};
const FilaArea Telefono{"Teléfono e Internet", "662800054"};
const FilaArea Luz{"Electricidad", "662800053"};
const FilaArea IvaSoportado{"IVA soportado 21%", "447200028"};
const FilaArea IvaRepercutido{"IVA repercutido 21%", "247700016"};

// The first and second subaccount of an area.
FilaArea primera(int area) {
    const FilaArea filas[] = {Capital, Banco, ProveedorA, Ventas, Cliente, Mobiliario, Telefono};
    return filas[area];
}
FilaArea segunda(int area) {
    const FilaArea filas[] = {Reservas, Caja, ProveedorB, Servicios, Deudor, Equipos, Luz};
    return filas[area];
}

// A drag from `origen` in area s onto `destino` in area t, nothing open, no money known.
EntradaSoltar arrastre(int s, const FilaArea& origen, int t, const FilaArea& destino) {
    EntradaSoltar e;
    e.S = s;
    e.T = t;
    e.Origen = origen;
    e.ActualS = origen;
    e.Destino = destino;
    return e;
}

// The same with the posting screen open on a two-line entry whose last line has its amount.
EntradaSoltar conAsiento(EntradaSoltar e, const FilaArea& linea1, const FilaArea& linea2,
                         bool conImporte = true) {
    e.Form4.Abierto = true;
    e.Form4.UltimaConImporte = conImporte;
    e.Form4.Nombre1 = linea1.Nombre;
    e.Form4.Nombre2 = linea2.Nombre;
    return e;
}

std::string nombres(const QList<FilaArea>& filas) {
    QStringList n;
    for (const FilaArea& f : filas)
        n << f.Nombre;
    return n.join(" | ").toStdString();
}

void esperarNuevo(const DecisionSoltar& d, const FilaArea& debe, const FilaArea& haber) {
    ASSERT_EQ(d.accion, Accion::Nuevo) << d.Mensaje.toStdString();
    EXPECT_EQ(d.Modo, "DOS");
    ASSERT_EQ(d.Lineas.size(), 2);
    EXPECT_EQ(d.Lineas[0], debe) << nombres(d.Lineas);
    EXPECT_EQ(d.Lineas[1], haber) << nombres(d.Lineas);
    EXPECT_TRUE(d.Mensaje.isEmpty()) << d.Mensaje.toStdString();
}

void esperarAnadir(const DecisionSoltar& d, char prueba, const QString& modo,
                   const QList<FilaArea>& lineas) {
    EXPECT_EQ(d.Prueba, prueba);
    ASSERT_EQ(d.accion, Accion::Anadir) << d.Mensaje.toStdString();
    EXPECT_EQ(d.Modo, modo);
    EXPECT_EQ(d.Lineas, lineas) << nombres(d.Lineas);
    EXPECT_TRUE(d.Mensaje.isEmpty()) << d.Mensaje.toStdString();
    EXPECT_TRUE(d.mostrarLineas());
}

// ---- A new entry: the side table over every pair of areas ---------------------------------

TEST(DecidirSoltar, CadaParDeAreasSigueSuFilaDeLaTabla) {
    for (int s = 0; s < NumeroAreas; ++s)
        for (int t = 0; t < NumeroAreas; ++t) {
            SCOPED_TRACE(testing::Message() << "S=" << s << " T=" << t);
            const FilaArea origen = primera(s);
            const FilaArea destino = s == t ? segunda(t) : primera(t);
            const DecisionSoltar d = DecidirSoltar(arrastre(s, origen, t, destino));
            if (s == t && (t == 3 || t == 6)) {
                // A drag inside the income or expense list, with no money known yet: nothing.
                EXPECT_EQ(d.accion, Accion::Nada);
                EXPECT_TRUE(d.Mensaje.isEmpty());
                EXPECT_FALSE(d.VaciarOrigen);
            } else if (s == t && (s == 0 || s == 2)) {
                // Within Capital or SE DEBE, credit areas, the sides swap.
                esperarNuevo(d, origen, destino);
            } else {
                // The money goes from the source to the target: the target is debited.
                esperarNuevo(d, destino, origen);
            }
            EXPECT_FALSE(d.Rapido);
        }
}

TEST(DecidirSoltar, EntradaRapidaContraElDineroDelUltimoAsiento) {
    for (int t : {3, 6}) {
        SCOPED_TRACE(t);
        // A drag inside the list, and a click (the row dropped on itself), alike.
        for (const FilaArea& origen : {segunda(t), primera(t)}) {
            EntradaSoltar e = arrastre(t, origen, t, primera(t));
            e.Dinero = Caja;
            const DecisionSoltar d = DecidirSoltar(e);
            EXPECT_TRUE(d.Rapido);
            EXPECT_FALSE(d.Aviso) << "no tip for a quick entry";
            if (t == 6)
                esperarNuevo(d, primera(t), Caja); // an expense paid from the money
            else
                esperarNuevo(d, Caja, primera(t)); // an income received into it
        }
    }
    // Only areas 3 and 6 make quick entries: a click elsewhere drops a row on itself.
    for (int t : {0, 1, 2, 4, 5}) {
        EntradaSoltar e = arrastre(t, primera(t), t, primera(t));
        e.Dinero = Banco;
        const DecisionSoltar d = DecidirSoltar(e);
        EXPECT_EQ(d.accion, Accion::Nada) << t;
        EXPECT_TRUE(d.VaciarOrigen) << t;
    }
}

TEST(DecidirSoltar, LaEntradaRapidaVaAntesQueElAsientoAbiertoYLoReemplaza) {
    EntradaSoltar e = conAsiento(arrastre(6, Telefono, 6, Telefono), Luz, Banco);
    e.Dinero = Banco;
    const DecisionSoltar d = DecidirSoltar(e);
    esperarNuevo(d, Telefono, Banco);
    EXPECT_TRUE(d.Rapido);
}

TEST(DecidirSoltar, ElAvisoDeEntradasRapidas) {
    // From the last money onto an income or expense.
    for (int t : {3, 6}) {
        EntradaSoltar e = arrastre(1, Banco, t, primera(t));
        e.Dinero = Banco;
        EXPECT_TRUE(DecidirSoltar(e).Aviso) << t;
        e.AvisoRepe = false;
        EXPECT_FALSE(DecidirSoltar(e).Aviso) << "the user asked not to see it again";
        e.AvisoRepe = true;
        e.Dinero = Caja;
        EXPECT_FALSE(DecidirSoltar(e).Aviso) << "another money subaccount";
    }
    // From areas 2 and 5 onto the last money.
    for (int s : {2, 5}) {
        EntradaSoltar e = arrastre(s, primera(s), 1, Banco);
        e.Dinero = Banco;
        EXPECT_TRUE(DecidirSoltar(e).Aviso) << s;
    }
    // Not from other areas onto the money, nor without any money known.
    for (int s : {0, 3, 4, 6}) {
        EntradaSoltar e = arrastre(s, primera(s), 1, Banco);
        e.Dinero = Banco;
        EXPECT_FALSE(DecidirSoltar(e).Aviso) << s;
    }
    EXPECT_FALSE(DecidirSoltar(arrastre(1, Banco, 6, Telefono)).Aviso);
}

TEST(DecidirSoltar, ElEjercicioCerradoRechazaCualquierSoltar) {
    for (int s = 0; s < NumeroAreas; ++s)
        for (int t = 0; t < NumeroAreas; ++t)
            for (bool abierto : {false, true}) {
                EntradaSoltar e = arrastre(s, primera(s), t, primera(t));
                e.Dinero = Banco;
                e.EjCerrado = true;
                if (abierto)
                    e = conAsiento(e, Telefono, Banco);
                const DecisionSoltar d = DecidirSoltar(e);
                EXPECT_EQ(d.accion, Accion::Cancelar);
                EXPECT_EQ(d.Mensaje, MsgEjercicioCerrado);
                EXPECT_FALSE(d.mostrarLineas());
                EXPECT_TRUE(d.Lineas.isEmpty());
            }
}

TEST(DecidirSoltar, MismaSubcuentaOSinOrigenNoHaceNadaYVaciaElOrigen) {
    for (int t : {0, 1, 2, 4, 5}) {
        DecisionSoltar d = DecidirSoltar(arrastre(t, primera(t), t, primera(t)));
        EXPECT_EQ(d.accion, Accion::Nada);
        EXPECT_TRUE(d.VaciarOrigen);
        EXPECT_TRUE(d.Mensaje.isEmpty());
        d = DecidirSoltar(arrastre(1, FilaArea{}, t, primera(t)));
        EXPECT_EQ(d.accion, Accion::Nada) << "no source picked up";
        EXPECT_TRUE(d.VaciarOrigen);
    }
    // Onto an income or expense the current row of the source list is what is compared.
    EntradaSoltar e = arrastre(1, Banco, 6, Telefono);
    e.ActualS = Telefono;
    const DecisionSoltar d = DecidirSoltar(e);
    EXPECT_EQ(d.accion, Accion::Nada);
    EXPECT_FALSE(d.VaciarOrigen);
}

TEST(DecidirSoltar, CodigosErroneos) {
    const FilaArea corta{"Cuenta corta", "15720"};
    // The target is checked first, then the source, each named in its message.
    DecisionSoltar d = DecidirSoltar(arrastre(1, Banco, 6, {"Gasto roto", " 6628 "}));
    EXPECT_EQ(d.accion, Accion::Nada);
    EXPECT_EQ(d.Mensaje, "Hay un error en la Cuenta Gasto roto, por lo que no podrá utilizarla.");
    d = DecidirSoltar(arrastre(1, corta, 6, {"Gasto roto", "66"}));
    EXPECT_EQ(d.Mensaje, MsgErrorEnCuenta("Gasto roto"));
    d = DecidirSoltar(arrastre(1, corta, 6, Telefono));
    EXPECT_EQ(d.Mensaje, MsgErrorEnCuenta("Cuenta corta"));
    EXPECT_EQ(d.accion, Accion::Nada);
    // Blanks around a code of nine digits are no error.
    d = DecidirSoltar(arrastre(1, {"Banco", " 157200003 "}, 6, Telefono));
    EXPECT_EQ(d.accion, Accion::Nuevo);
    // A quick entry checks the row picked up, not the target.
    EntradaSoltar e = arrastre(6, {"Gasto roto", "6628"}, 6, Telefono);
    e.Dinero = Banco;
    d = DecidirSoltar(e);
    EXPECT_EQ(d.Mensaje, MsgErrorEnCuenta("Gasto roto"));
    e = arrastre(6, Telefono, 6, {"Gasto roto", "6628"});
    e.Dinero = Banco;
    EXPECT_EQ(DecidirSoltar(e).accion, Accion::Nuevo);
}

// ---- Adding to an open entry: tests A to E --------------------------------------------------

TEST(DecidirSoltar, SinImporteEnLaUltimaLineaSoloSeMuestra) {
    const DecisionSoltar d =
        DecidirSoltar(conAsiento(arrastre(1, Banco, 6, Luz), Telefono, Banco, false));
    EXPECT_EQ(d.accion, Accion::Mostrar);
    EXPECT_EQ(d.Mensaje, "No ha completado los dos primeros apuntes.");
    EXPECT_TRUE(d.Lineas.isEmpty());
    EXPECT_TRUE(d.Modo.isEmpty());
    EXPECT_TRUE(d.mostrarLineas());
}

TEST(DecidirSoltar, PruebaA_SobreLaPrimeraLinea) {
    // Without a source name, the current row of the source list is added, Modo as it was.
    EntradaSoltar e = conAsiento(arrastre(1, FilaArea{}, 6, Telefono), Telefono, Banco);
    e.ActualS = Caja;
    esperarAnadir(DecidirSoltar(e), 'A', QString(), {Caja});
    // More money into the line-1 subaccount: the source is credited.
    esperarAnadir(DecidirSoltar(conAsiento(arrastre(1, Caja, 6, Telefono), Telefono, Banco)), 'A',
                  "H", {Caja});
    // Within Capital or SE DEBE the new line goes to the debit side.
    for (int a : {0, 2}) {
        const DecisionSoltar d =
            DecidirSoltar(conAsiento(arrastre(a, segunda(a), a, primera(a)), primera(a), Banco));
        esperarAnadir(d, 'A', "H2", {segunda(a)});
    }
}

TEST(DecidirSoltar, PruebaB_DesdeLaPrimeraLinea) {
    // From the line-1 subaccount onto another one: the target is debited.
    esperarAnadir(DecidirSoltar(conAsiento(arrastre(6, Telefono, 1, Caja), Telefono, Banco)), 'B',
                  "D", {Caja});
    // Within Capital or SE DEBE the source is added, in D2.
    for (int a : {0, 2}) {
        const DecisionSoltar d =
            DecidirSoltar(conAsiento(arrastre(a, primera(a), a, segunda(a)), primera(a), Banco));
        esperarAnadir(d, 'B', "D2", {primera(a)});
    }
    // B looks at the current row of the source list, not at the row picked up.
    EntradaSoltar e = conAsiento(arrastre(6, Luz, 1, Caja), Telefono, Banco);
    e.ActualS = Telefono;
    esperarAnadir(DecidirSoltar(e), 'B', "D", {Caja});
}

TEST(DecidirSoltar, PruebaC_UnSegundoGastoDelMismoBanco) {
    // Bank onto a first expense, then the bank again onto a second: one debit line more.
    esperarAnadir(DecidirSoltar(conAsiento(arrastre(1, Banco, 6, Luz), Telefono, Banco)), 'C', "D",
                  {Luz});
}

TEST(DecidirSoltar, PruebaD_UnaSubcuentaSobreSiMisma) {
    // VAT subaccounts add a line on the side of their kind.
    esperarAnadir(
        DecidirSoltar(conAsiento(arrastre(4, IvaSoportado, 4, IvaSoportado), Telefono, Banco)), 'D',
        "D", {IvaSoportado});
    esperarAnadir(
        DecidirSoltar(conAsiento(arrastre(2, IvaRepercutido, 2, IvaRepercutido), Ventas, Cliente)),
        'D', "H", {IvaRepercutido});
    // Any other subaccount: nothing, and the source is emptied.
    const DecisionSoltar d =
        DecidirSoltar(conAsiento(arrastre(5, Mobiliario, 5, Mobiliario), Telefono, Banco));
    EXPECT_EQ(d.Prueba, 'D');
    EXPECT_EQ(d.accion, Accion::Nada);
    EXPECT_TRUE(d.VaciarOrigen);
    EXPECT_TRUE(d.Lineas.isEmpty());
    EXPECT_FALSE(d.mostrarLineas());
}

TEST(DecidirSoltar, PruebaE_CualquierOtroPar) {
    for (int s = 0; s < NumeroAreas; ++s)
        for (int t = 0; t < NumeroAreas; ++t) {
            SCOPED_TRACE(testing::Message() << "S=" << s << " T=" << t);
            const FilaArea origen = primera(s);
            const FilaArea destino = segunda(t);
            // An open entry between two subaccounts that neither test A to D touches.
            const DecisionSoltar d = DecidirSoltar(
                conAsiento(arrastre(s, origen, t, destino), IvaSoportado, IvaRepercutido));
            if (s == t && (s == 0 || s == 2))
                esperarAnadir(d, 'E', "DOS", {origen, destino});
            else if (s == t && (s == 3 || s == 6))
                continue; // a quick entry (no money here: nothing)
            else
                esperarAnadir(d, 'E', "DOS", {destino, origen});
        }
}

TEST(DecidirSoltar, LasPruebasSeMiranEnOrden) {
    // A holds though B and C would too.
    EntradaSoltar e = conAsiento(arrastre(1, Banco, 6, Telefono), Telefono, Banco);
    e.ActualS = Telefono;
    EXPECT_EQ(DecidirSoltar(e).Prueba, 'A');
    // B before C: the current row of the source is line 1 and the source is line 2.
    e = conAsiento(arrastre(1, Banco, 6, Luz), Telefono, Banco);
    e.ActualS = Telefono;
    EXPECT_EQ(DecidirSoltar(e).Prueba, 'B');
    // C before D: a 472 subaccount that is line 2, dropped on itself.
    e = conAsiento(arrastre(4, IvaSoportado, 4, IvaSoportado), Telefono, IvaSoportado);
    const DecisionSoltar d = DecidirSoltar(e);
    EXPECT_EQ(d.Prueba, 'C');
    EXPECT_EQ(d.Modo, "D");
}

TEST(DecidirSoltar, UnCodigoErroneoNoAnadeNingunaLinea) {
    const FilaArea rota{"Gasto roto", "66280"};
    DecisionSoltar d = DecidirSoltar(conAsiento(arrastre(1, Banco, 6, rota), Telefono, Banco));
    EXPECT_EQ(d.Prueba, 'C');
    EXPECT_EQ(d.accion, Accion::Nada);
    EXPECT_EQ(d.Mensaje, MsgErrorEnCuenta("Gasto roto"));
    EXPECT_TRUE(d.Lineas.isEmpty());
    // In E the second line is checked before the first is added.
    d = DecidirSoltar(
        conAsiento(arrastre(1, {"Banco roto", "1572"}, 6, Luz), IvaSoportado, IvaRepercutido));
    EXPECT_EQ(d.Prueba, 'E');
    EXPECT_EQ(d.accion, Accion::Nada);
    EXPECT_EQ(d.Mensaje, MsgErrorEnCuenta("Banco roto"));
    EXPECT_TRUE(d.Lineas.isEmpty());
}

// ---- The drag state -------------------------------------------------------------------------

TEST(EstadoArrastre, RecogerSoltarYCancelar) {
    EstadoArrastre e;
    EXPECT_TRUE(e.Armado) << "armed at load";
    e.Pulsar(1);
    // Movements over another list pick nothing up.
    EXPECT_FALSE(e.SobreLista(6, Telefono));
    EXPECT_TRUE(e.SobreLista(1, Banco));
    EXPECT_FALSE(e.Armado);
    EXPECT_EQ(e.TextoFlotante(), "   Banco");
    // Further movements over the source list keep the row picked up first.
    EXPECT_FALSE(e.SobreLista(1, Caja));
    EXPECT_EQ(e.Origen, Banco);

    const DecisionSoltar d = e.Soltar(6, Telefono, Caja, false, {}, true, {});
    esperarNuevo(d, Telefono, Banco);
    EXPECT_TRUE(e.Armado) << "armed again after every drop";
    EXPECT_EQ(e.Origen, Banco) << "a posting drop keeps the source";

    // A drop that empties the source.
    e.Pulsar(1);
    ASSERT_TRUE(e.SobreLista(1, Banco));
    EXPECT_EQ(e.Soltar(1, Banco, Banco, false, {}, true, {}).accion, Accion::Nada);
    EXPECT_EQ(e.Origen, FilaArea{});
    EXPECT_TRUE(e.Armado);

    // A cancelled drag re-arms.
    e.Pulsar(3);
    ASSERT_TRUE(e.SobreLista(3, Ventas));
    e.Cancelar();
    EXPECT_TRUE(e.Armado);
    // A closed exercise re-arms too.
    e.Pulsar(3);
    ASSERT_TRUE(e.SobreLista(3, Ventas));
    EXPECT_EQ(e.Soltar(1, Banco, Ventas, true, {}, true, {}).accion, Accion::Cancelar);
    EXPECT_TRUE(e.Armado);
}

} // namespace
