// The inventory's elements and locations: numbers, the form's checks in their order with their
// messages and focus, what "NO" stores, the questions on the program's own fields, deletion, the
// views of the list, and the locations' rules.

#include "ComunInventario.h"
#include "platform/Rejilla.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

QList<qint64> Numeros(Entorno& e, const FiltroInventario& f) {
    Rejilla r = RejillaInventario();
    LlenarInventario(e.sesion, f, r);
    QList<qint64> n;
    for (int i = 0; i < r.Filas(); ++i)
        n << r.Celda(i, ColInvElemento).toLongLong();
    return n;
}

QList<qint64> Numeros(Entorno& e, VerInventario ver, const QString& localizacion = {},
                      const QDate& desde = {}, const QDate& hasta = {}) {
    return Numeros(e, FiltroInventario{ver, localizacion, desde, hasta});
}

} // namespace

TEST(Inventario, NumeroEsElMaximoMasUnoYSeReutilizaTrasBorrarElUltimo) {
    Entorno e;
    EmpresaInventario(e);
    EXPECT_EQ(Alta(e, Ficha("Uno")), 1);
    EXPECT_EQ(Alta(e, Ficha("Dos")), 2);
    EXPECT_EQ(Alta(e, Ficha("Tres")), 3);
    EXPECT_EQ(FormatoElemento(3), "00000003");
    EXPECT_EQ(FormatoElemento(12345678), "12345678");

    e.dialogo.responder({true});
    ASSERT_TRUE(EliminarElemento(e.sesion, e.dialogo, 3));
    EXPECT_EQ(e.dialogo.preguntas.last(),
              "Desea eliminar el elemento de Inventario 00000003 de nombre  Tres");
    EXPECT_EQ(Alta(e, Ficha("Tres bis")), 3);
    // A gap below the highest number stays.
    e.dialogo.responder({true});
    ASSERT_TRUE(EliminarElemento(e.sesion, e.dialogo, 1));
    EXPECT_EQ(Alta(e, Ficha("Cuatro")), 4);
    // Without the Yes nothing goes.
    EXPECT_FALSE(EliminarElemento(e.sesion, e.dialogo, 4));
    EXPECT_EQ(Numeros(e, VerInventario::Todos), QList<qint64>({2, 3, 4}));
}

TEST(Inventario, ComprobacionesEnOrdenConMensajeYFoco) {
    struct Caso {
        const char* nombre;
        std::function<void(FichaElemento&)> cambio;
        QString mensaje;
        CampoElemento foco;
    };
    const QList<Caso> casos = {
        {"sin nombre", [](FichaElemento& f) { f.Nombre = "  "; },
         "Tiene que introducir el nombre del elemento.", CampoElemento::Nombre},
        {"nombre largo", [](FichaElemento& f) { f.Nombre = QString(51, 'x'); },
         "El campo Nombre del elemento no puede tener más de 50 caracteres.",
         CampoElemento::Nombre},
        {"sin naturaleza", [](FichaElemento& f) { f.Naturaleza.clear(); },
         "Tiene que seleccionar la Naturaleza del elemento", CampoElemento::Naturaleza},
        {"adquirido tras el ejercicio", [](FichaElemento& f) { f.FechaAdq = "01/01/2026"; },
         "La fecha de adquisición del elemento es posterior a la de finalización del ejercio.",
         CampoElemento::FechaAdq},
        {"fin de amortización el día de la compra",
         [](FichaElemento& f) { f.FinAmort = "15/06/2020"; },
         "La fecha de Fin de amortización tiene que ser posterior a la de adquisición del "
         "elemento.",
         CampoElemento::FinAmort},
        {"sin importe", [](FichaElemento& f) { f.Importe.clear(); },
         "Tiene que introducir el Importe de adquisición del elemento.", CampoElemento::Importe},
        {"importe cero", [](FichaElemento& f) { f.Importe = "0"; },
         "Tiene que introducir el Importe de adquisición del elemento.", CampoElemento::Importe},
        {"importe no válido", [](FichaElemento& f) { f.Importe = "1e308"; },
         MsgImporteNoValido("1e308"), CampoElemento::Importe},
        {"sin localización", [](FichaElemento& f) { f.Localizacion.clear(); },
         "Tiene que introducir el Centro donde se localiza el elemento. Para dar de alta un "
         "Centro, teniendo el cursor en el campo Localización pulse la tecla +.",
         CampoElemento::Localizacion},
        {"con fecha de baja", [](FichaElemento& f) { f.FechaBaja = "01/02/2025"; },
         "No introduzca la Fecha de baja del elemento cuando lo está creando.",
         CampoElemento::FechaBaja},
        {"sin amortizable", [](FichaElemento& f) { f.Amortizable.clear(); },
         "Tiene que seleccionar si el elemento es amortizable", CampoElemento::Amortizable},
        {"SI sin porcentaje", [](FichaElemento& f) { f.Porcentaje.clear(); },
         "Si el elemento es amortizable debe introducir el porcentaje de amortización anual.",
         CampoElemento::Porcentaje},
        {"NO con porcentaje", [](FichaElemento& f) { f.Amortizable = "NO"; },
         "Si el elemento no es amortizable no debe introducir el porcentaje de amortización "
         "anual.",
         CampoElemento::Porcentaje},
        {"porcentaje sobre 100", [](FichaElemento& f) { f.Porcentaje = "120"; },
         "El porcentaje de amortización anual tiene que ser un número mayor que 0 y no mayor "
         "que 100.",
         CampoElemento::Porcentaje},
        {"sin subcuenta de amortización", [](FichaElemento& f) { f.SubctaAmort.clear(); },
         "Tiene que seleccionar la Subcuenta de amortización. Primero seleccione el Area a la "
         "que pertenece",
         CampoElemento::SubctaAmort},
        {"sin subcuenta de dotación", [](FichaElemento& f) { f.SubctaDota.clear(); },
         "Tiene que seleccionar la Subcuenta de dotación. Primero seleccione el Area a la que "
         "pertenece",
         CampoElemento::SubctaDota},
        {"dotación en el lugar de la amortización",
         [](FichaElemento& f) { f.SubctaAmort = inv::DotaMaterial; },
         "La subcuenta 668100064 no es una subcuenta de amortización acumulada (028) sin "
         "aparcar.",
         CampoElemento::SubctaAmort},
        {"centro desaparecido", [](FichaElemento& f) { f.Localizacion = "Sótano"; },
         "No se encontró el Centro.", CampoElemento::Localizacion},
    };
    Entorno e;
    EmpresaInventario(e);
    for (const Caso& c : casos) {
        FichaElemento f = Ficha();
        c.cambio(f);
        e.dialogo.informados.clear();
        const ResultadoFicha r = AnadirElemento(e.sesion, e.dialogo, f);
        EXPECT_FALSE(r.hecho) << c.nombre;
        EXPECT_EQ(e.dialogo.informados, QStringList{c.mensaje}) << c.nombre;
        EXPECT_EQ(r.foco, c.foco) << c.nombre;
    }
    // The first failing check is the one told: no name and no amount says only the name.
    FichaElemento f = Ficha();
    f.Nombre.clear();
    f.Importe.clear();
    e.dialogo.informados.clear();
    AnadirElemento(e.sesion, e.dialogo, f);
    EXPECT_EQ(e.dialogo.informados, QStringList{"Tiene que introducir el nombre del elemento."});
    EXPECT_TRUE(Numeros(e, VerInventario::Todos).isEmpty());
}

TEST(Inventario, AdquisicionAnteriorAlEjercicioSeAdmiteYElUltimoDiaTambien) {
    Entorno e;
    EmpresaInventario(e);
    FichaElemento f = Ficha();
    f.FechaAdq = "31/12/1999";
    const Elemento antiguo = Leer(e, Alta(e, f));
    EXPECT_EQ(antiguo.FechaAdq, QDate(1999, 12, 31));
    f.FechaAdq = "31/12/2025";
    EXPECT_EQ(Leer(e, Alta(e, f)).FechaAdq, QDate(2025, 12, 31));
}

TEST(Inventario, NoAmortizableGuardaSinPorcentajeNiSubcuentas) {
    Entorno e;
    EmpresaInventario(e);
    FichaElemento f = Ficha("Cuadro");
    f.Amortizable = "NO";
    f.Porcentaje.clear();
    const qint64 n = Alta(e, f);
    Conexion c = e.bavar();
    QSqlQuery q =
        c.ejecutar("SELECT Amortizable, Porcentaje, SubctaAmort, SubctaDota FROM Inventario WHERE "
                   "NElemento = ?",
                   {n});
    ASSERT_TRUE(q.next());
    EXPECT_EQ(q.value(0).toInt(), 0);
    EXPECT_TRUE(q.value(1).isNull());
    EXPECT_TRUE(q.value(2).toString().isEmpty());
    EXPECT_TRUE(q.value(3).toString().isEmpty());
    const QStringList fila = FilaInventario(Leer(e, n));
    EXPECT_EQ(fila.at(ColInvAmortizable), "NO");
    EXPECT_EQ(fila.at(ColInvPorcentaje), "");
}

TEST(Inventario, ListasDeSubcuentasSinAparcadasOrdenadasPorNombre) {
    Entorno e;
    EmpresaInventario(e);
    {
        Conexion c = e.datos();
        c.ejecutar("UPDATE Cuentas SET Aparcada = -1 WHERE NCuenta = ?", {inv::AmortInformatica});
    }
    QStringList amort, nombres;
    for (const SubcuentaOfrecida& s : SubcuentasAmortizacion(e.sesion)) {
        amort << s.NCuenta;
        nombres << s.Cuenta;
    }
    // By name: "Amort. acum. elem. transporte" first; the parked "eq. informáticos" is missing.
    EXPECT_EQ(amort, QStringList({"028100042", "028000039", "028100040", "028100043"}));
    QStringList ordenados = nombres;
    std::sort(ordenados.begin(), ordenados.end());
    EXPECT_EQ(nombres, ordenados);
    QStringList dota;
    for (const SubcuentaOfrecida& s : SubcuentasDotacion(e.sesion))
        dota << s.NCuenta;
    EXPECT_EQ(dota, QStringList({inv::DotaIntangible, inv::DotaMaterial}));
    // A parked subaccount is refused as the list would not offer it.
    FichaElemento f = Ficha();
    f.SubctaAmort = inv::AmortInformatica;
    EXPECT_FALSE(AnadirElemento(e.sesion, e.dialogo, f).hecho);
}

TEST(Inventario, ModificarPreguntaPorLosCamposDelProgramaYRepone) {
    Entorno e;
    EmpresaInventario(e);
    const qint64 n = Alta(e, Ficha());
    Poner(e, n, "UltimaAmort = ?, Amortizado = ?", {"2024-12-31", 450.0});

    // Nothing loaded.
    FichaElemento vacia;
    e.dialogo.informados.clear();
    EXPECT_FALSE(ModificarElemento(e.sesion, e.dialogo, 0, vacia).hecho);
    EXPECT_EQ(e.dialogo.informados,
              QStringList{"Haga primero doble clic sobre el vencimiento que quiere modificar."});

    // Both changed, both refused: the old values return, the other changes are written.
    FichaElemento f = FichaDe(Leer(e, n));
    f.Nombre = "Mesa grande";
    f.UltimaAmort = "30/06/2025";
    f.Amortizado = "500";
    e.dialogo.responder({false, false});
    e.dialogo.preguntas.clear();
    e.dialogo.informados.clear();
    ASSERT_TRUE(ModificarElemento(e.sesion, e.dialogo, n, f).hecho);
    ASSERT_EQ(e.dialogo.preguntas.size(), 2);
    EXPECT_EQ(e.dialogo.preguntas.at(0),
              "Ha modificado la fecha de la última amortización realizada. Esta fecha la "
              "controla el programa y no debe cambiarla, salvo que haya modificado los asientos "
              "de amortización de este elemento. Está seguro de que desea modificar la fecha de "
              "la última amortización del elemento 00000001");
    EXPECT_EQ(e.dialogo.preguntas.at(1),
              "Ha modificado el importe del Amortizado (amortización acumulada). Este importe lo "
              "controla el programa y no debe cambiarlo, salvo que haya modificado los asientos "
              "de amortización de este elemento. Está seguro de que desea modificar el importe "
              "amortizado del elemento 00000001");
    EXPECT_EQ(e.dialogo.informados,
              QStringList({"Se ha repuesto la fecha anterior.",
                           "Se ha repuesto el importe amortizado anterior."}));
    EXPECT_EQ(f.UltimaAmort, "31/12/2024");
    EXPECT_EQ(f.Amortizado, "450,00");
    Elemento el = Leer(e, n);
    EXPECT_EQ(el.Nombre, "Mesa grande");
    EXPECT_EQ(el.UltimaAmort, QDate(2024, 12, 31));
    EXPECT_EQ(el.Amortizado, 450.0);

    // Confirmed, they change; unchanged, nothing is asked.
    f.UltimaAmort = "30/06/2025";
    f.Amortizado = "500,5";
    e.dialogo.responder({true, true});
    ASSERT_TRUE(ModificarElemento(e.sesion, e.dialogo, n, f).hecho);
    el = Leer(e, n);
    EXPECT_EQ(el.UltimaAmort, QDate(2025, 6, 30));
    EXPECT_EQ(el.Amortizado, 500.5);
    e.dialogo.preguntas.clear();
    f = FichaDe(el);
    EXPECT_TRUE(ModificarElemento(e.sesion, e.dialogo, n, f).hecho);
    EXPECT_TRUE(e.dialogo.preguntas.isEmpty());
}

TEST(Inventario, BajaPideFechaYCausaJuntas) {
    Entorno e;
    EmpresaInventario(e);
    const qint64 n = Alta(e, Ficha());
    FichaElemento f = FichaDe(Leer(e, n));
    f.CausaBaja = "Pérdida";
    e.dialogo.informados.clear();
    ResultadoFicha r = ModificarElemento(e.sesion, e.dialogo, n, f);
    EXPECT_EQ(r.foco, CampoElemento::FechaBaja);
    EXPECT_EQ(e.dialogo.informados.last(),
              "Si el elemento se va a dar de baja debe introducir antes la fecha de su baja.");
    f.CausaBaja.clear();
    f.FechaBaja = "30/09/2025";
    r = ModificarElemento(e.sesion, e.dialogo, n, f);
    EXPECT_EQ(r.foco, CampoElemento::CausaBaja);
    EXPECT_EQ(e.dialogo.informados.last(),
              "Si el elemento está dado de baja debe introducir la causa de dicha baja.");
    f.CausaBaja = "Transmisión";
    ASSERT_TRUE(ModificarElemento(e.sesion, e.dialogo, n, f).hecho);
    const Elemento el = Leer(e, n);
    EXPECT_EQ(el.FechaBaja, QDate(2025, 9, 30));
    EXPECT_EQ(el.CausaBaja, "Transmisión");
}

TEST(Inventario, LasOnceVistas) {
    Entorno e;
    EmpresaInventario(e);
    // 1: in service, depreciated this year; 2: retired, in the warehouse; 3: not depreciable;
    // 4: fully depreciated last year; 5: bought this year, never depreciated.
    const qint64 uno = Alta(e, Ficha("Uno"));
    const qint64 dos = Alta(e, Ficha("Dos"));
    FichaElemento f = Ficha("Tres");
    f.Amortizable = "NO";
    f.Porcentaje.clear();
    const qint64 tres = Alta(e, f);
    const qint64 cuatro = Alta(e, Ficha("Cuatro"));
    f = Ficha("Cinco");
    f.FechaAdq = "01/01/2025";
    const qint64 cinco = Alta(e, f);
    Poner(e, uno, "UltimaAmort = ?, Amortizado = ?", {"2025-01-01", 100.0});
    Poner(e, dos, "UltimaAmort = ?, FechaBaja = ?, CausaBaja = ?, NCentro = ?",
          {"2025-12-31", "2025-12-31", "Otros", CentroDeNombre(e.sesion, inv::Almacen).NCentro});
    Poner(e, cuatro, "UltimaAmort = ?, Amortizado = Importe", {"2024-12-31"});

    using L = QList<qint64>;
    EXPECT_EQ(Numeros(e, VerInventario::Todos), L({uno, dos, tres, cuatro, cinco}));
    EXPECT_EQ(Numeros(e, VerInventario::DadosDeBaja), L({dos}));
    EXPECT_EQ(Numeros(e, VerInventario::NoDadosDeBaja), L({uno, tres, cuatro, cinco}));
    // Both days of the exercise belong to it.
    EXPECT_EQ(Numeros(e, VerInventario::ConAmortizacion), L({uno, dos}));
    EXPECT_EQ(Numeros(e, VerInventario::SinAmortizacion), L({tres, cuatro, cinco}));
    EXPECT_EQ(Numeros(e, VerInventario::ConLocalizacion, inv::Almacen), L({dos}));
    EXPECT_EQ(Numeros(e, VerInventario::Amortizables), L({uno, dos, cuatro, cinco}));
    EXPECT_EQ(Numeros(e, VerInventario::NoAmortizables), L({tres}));
    // An element exactly at its value is in both.
    EXPECT_EQ(Numeros(e, VerInventario::Amortizados), L({cuatro}));
    EXPECT_EQ(Numeros(e, VerInventario::NoAmortizados), L({uno, dos, tres, cuatro, cinco}));
    EXPECT_EQ(Numeros(e, VerInventario::AdquiridosEntre, {}, QDate(2020, 6, 15), QDate(2025, 1, 1)),
              L({uno, dos, tres, cuatro, cinco}));
    EXPECT_EQ(Numeros(e, VerInventario::AdquiridosEntre, {}, QDate(2020, 6, 16), QDate(2025, 1, 1)),
              L({cinco}));

    // The row as the list shows it.
    Rejilla r = RejillaInventario();
    LlenarInventario(e.sesion, {VerInventario::DadosDeBaja, {}, {}, {}}, r);
    EXPECT_EQ(r.Fila(0),
              QStringList({"00000002", "Dos", "Material", "15/06/2020", "1.000,00", "", "Almacén",
                           "31/12/2025", "Otros", "SI", "10", "", "31/12/2025", "0,00",
                           inv::AmortMobiliario, inv::DotaMaterial}));
    EXPECT_TRUE(r.columna(ColInvSubctaAmort).oculta);
    EXPECT_TRUE(r.columna(ColInvSubctaDota).oculta);

    // Deleting the retired asks first and takes only them.
    EXPECT_EQ(EliminarDadosDeBaja(e.sesion, e.dialogo), -1);
    EXPECT_EQ(e.dialogo.preguntas.last(),
              "Desea eliminar todos elementos del Inventario que figuren dados de Baja?");
    e.dialogo.responder({true});
    EXPECT_EQ(EliminarDadosDeBaja(e.sesion, e.dialogo), 1);
    EXPECT_EQ(Numeros(e, VerInventario::Todos), L({uno, tres, cuatro, cinco}));
}

TEST(Centros, AltaRenombrarYEliminarConSusMensajes) {
    Entorno e;
    EmpresaInventario(e);
    e.dialogo.informados.clear();
    EXPECT_FALSE(AnadirCentro(e.sesion, e.dialogo, "oficina"));
    EXPECT_FALSE(AnadirCentro(e.sesion, e.dialogo, "ALMACÉN"));
    EXPECT_EQ(e.dialogo.informados,
              QStringList({"Ese Centro ya existe.", "Ese Centro ya existe."}));
    ASSERT_TRUE(AnadirCentro(e.sesion, e.dialogo, " Taller "));
    QStringList nombres;
    QList<qint64> numeros;
    for (const Centro& c : ListaCentros(e.sesion)) {
        nombres << c.Localizacion;
        numeros << c.NCentro;
    }
    EXPECT_EQ(nombres, QStringList({"Almacén", "Oficina", "Taller"}));
    EXPECT_EQ(numeros, QList<qint64>({2, 1, 3}));

    e.dialogo.informados.clear();
    EXPECT_FALSE(RenombrarCentro(e.sesion, e.dialogo, "Taller", ""));
    EXPECT_FALSE(RenombrarCentro(e.sesion, e.dialogo, "", "Nave"));
    EXPECT_FALSE(RenombrarCentro(e.sesion, e.dialogo, "Taller", "oficina"));
    EXPECT_EQ(e.dialogo.informados,
              QStringList({"Debe introducir el nuevo nombre del Centro.",
                           "Debe seleccionar el nombre del Centro que se va a modificar.",
                           "Ya existe ese Centro."}));
    // Not confirmed, then confirmed; a change of case alone is the same location.
    EXPECT_FALSE(RenombrarCentro(e.sesion, e.dialogo, "Taller", "Nave"));
    EXPECT_EQ(e.dialogo.preguntas.last(),
              "Está seguro de que desea modificar el nombre del Centro Taller");
    e.dialogo.responder({true, true});
    EXPECT_TRUE(RenombrarCentro(e.sesion, e.dialogo, "Taller", "Nave"));
    EXPECT_TRUE(RenombrarCentro(e.sesion, e.dialogo, "nave", "NAVE"));
    EXPECT_EQ(CentroDeNombre(e.sesion, "Nave").Localizacion, "NAVE");

    // A location holding an element cannot go.
    Alta(e, Ficha());
    e.dialogo.responder({true, true});
    e.dialogo.informados.clear();
    EXPECT_FALSE(EliminarCentro(e.sesion, e.dialogo, inv::Oficina));
    EXPECT_EQ(e.dialogo.preguntas.last(), "Está seguro de que desea eliminar el Centro Oficina");
    EXPECT_EQ(e.dialogo.informados,
              QStringList{"No se puede eliminar el Centro Oficina porque hay elementos del "
                          "Inventario ubicados en el mismo."});
    EXPECT_TRUE(EliminarCentro(e.sesion, e.dialogo, "NAVE"));
    EXPECT_EQ(CentroDeNombre(e.sesion, "Nave").NCentro, 0);
}
