#include "tax/Listado347.h"

#include "platform/Impresora.h"
#include "platform/Rejilla.h"
#include "store/Formato.h"

namespace {

const QString Standard = QStringLiteral("standard");

QString Via(const Inmueble347& i) {
    return (i.tipoVia.trimmed() + u' ' + i.via.trimmed()).trimmed();
}

QString Marca(bool x) {
    return x ? QStringLiteral("X") : QString();
}

// A column of the draft: where it starts (or ends, for figures) from the left margin, how wide.
struct ColumnaBorrador {
    QString titulo;
    double x;
    double ancho;
    bool derecha = false;
};

class Borrador347 {
public:
    static constexpr double Izquierda = 1000, Derecha = 1000, Arriba = 700, Abajo = 900;

    Borrador347(Impresora& imp, const QString& fuente, double tamano)
        : imp_(imp), fuente_(fuente.isEmpty() ? QStringLiteral("Arial") : fuente),
          tamano_(tamano > 0 ? tamano : 9) {
        imp_.PonerFuente(fuente_);
        imp_.PonerTamano(tamano_);
        imp_.PonerNegrita(false);
        imp_.PonerBordeIzquierdo(Izquierda);
        imp_.IrA(Izquierda, Arriba);
    }

    void Titulo(const QString& texto) {
        imp_.PonerTamano(tamano_ + 6);
        imp_.PonerNegrita(true);
        imp_.PonerX(Izquierda);
        imp_.Escribir(texto);
        imp_.Linea(Izquierda, imp_.Y(), imp_.AnchoPagina() - Derecha, imp_.Y());
        imp_.PonerY(imp_.Y() + 100);
        imp_.PonerTamano(tamano_);
        imp_.PonerNegrita(false);
    }

    void Texto(const QString& texto, bool negrita = false) {
        sitio();
        imp_.PonerNegrita(negrita);
        imp_.PonerX(Izquierda);
        imp_.Escribir(texto);
        imp_.PonerNegrita(false);
    }

    // Pairs of a caption and its value on one line, each pair in its half of the page.
    void Pares(const QList<std::pair<QString, QString>>& pares) {
        sitio();
        const double mitad = (imp_.AnchoPagina() - Izquierda - Derecha) / 2;
        const double y = imp_.Y();
        for (int i = 0; i < pares.size(); ++i) {
            imp_.IrA(Izquierda + i * mitad, y);
            imp_.EscribirSeguido(pares.at(i).first + QStringLiteral(": "));
            imp_.PonerNegrita(true);
            imp_.EscribirSeguido(pares.at(i).second);
            imp_.PonerNegrita(false);
        }
        imp_.IrA(Izquierda, y + imp_.AltoLinea());
    }

    void Seccion(const QString& texto, const QList<ColumnaBorrador>& columnas) {
        columnas_ = columnas;
        imp_.PonerY(imp_.Y() + 200);
        sitio(3);
        Texto(texto, true);
        if (!columnas_.isEmpty())
            cabecera();
    }

    void Fila(const QStringList& celdas) {
        if (imp_.Y() + imp_.AltoLinea() > limite()) {
            saltar();
            cabecera();
        }
        const double y = imp_.Y();
        for (int i = 0; i < celdas.size() && i < columnas_.size(); ++i)
            escribir(columnas_.at(i), celdas.at(i), y);
        imp_.IrA(Izquierda, y + imp_.AltoLinea());
    }

    void Cierre(const QList<std::pair<QString, QString>>& pares) {
        sitio(pares.size() + 1);
        imp_.Linea(Izquierda, imp_.Y(), imp_.AnchoPagina() - Derecha, imp_.Y());
        imp_.PonerY(imp_.Y() + 40);
        for (const auto& [etiqueta, valor] : pares) {
            imp_.PonerX(Izquierda);
            imp_.PonerNegrita(true);
            imp_.EscribirSeguido(etiqueta);
            imp_.Escribir(valor);
            imp_.PonerNegrita(false);
        }
        columnas_.clear();
    }

    void Terminar() {
        pie();
        imp_.FinDocumento();
    }

private:
    double limite() const { return imp_.AltoPagina() - Abajo - imp_.AltoLinea(); }

    // Room for `lineas` more lines on this page, or a new page.
    void sitio(int lineas = 1) {
        if (imp_.Y() + lineas * imp_.AltoLinea() > limite())
            saltar();
    }

    void saltar() {
        pie();
        imp_.NuevaPagina();
        imp_.IrA(Izquierda, Arriba);
    }

    void pie() {
        const QString texto = QStringLiteral("Página nº %1").arg(imp_.Pagina());
        const double x = Izquierda, y = imp_.Y();
        imp_.PonerNegrita(false);
        imp_.IrA((imp_.AnchoPagina() - imp_.AnchoTexto(texto)) / 2,
                 imp_.AltoPagina() - Abajo + 100);
        imp_.Escribir(texto);
        imp_.IrA(x, y);
    }

    void cabecera() {
        const double y = imp_.Y();
        imp_.PonerNegrita(true);
        for (const ColumnaBorrador& c : columnas_)
            escribir(c, c.titulo, y);
        imp_.PonerNegrita(false);
        const double abajo = y + imp_.AltoLinea();
        imp_.Linea(Izquierda, abajo, imp_.AnchoPagina() - Derecha, abajo);
        imp_.IrA(Izquierda, abajo + 40);
    }

    void escribir(const ColumnaBorrador& c, const QString& texto, double y) {
        const QString corto = imp_.RecortarTexto(texto, c.ancho);
        if (c.derecha) {
            imp_.IrA(Izquierda + c.x - imp_.AnchoTexto(corto), y);
            imp_.EscribirADerecha(corto, Izquierda + c.x);
        } else {
            imp_.IrA(Izquierda + c.x, y);
            imp_.EscribirSeguido(corto);
        }
    }

    Impresora& imp_;
    QString fuente_;
    double tamano_;
    QList<ColumnaBorrador> columnas_;
};

} // namespace

double SumaDeclarados(const Modelo347& m) {
    double s = 0;
    for (const Declarado347& d : m.declarados)
        s += Valor(d.importe);
    return Centimos(s);
}

double SumaInmuebles(const Modelo347& m) {
    double s = 0;
    for (const Inmueble347& i : m.inmuebles)
        s += Valor(i.importe);
    return Centimos(s);
}

Rejilla Rejilla347(const Modelo347& m) {
    Rejilla r({{QStringLiteral("NIF")},
               {QStringLiteral("Nombre")},
               {QStringLiteral("Provincia")},
               {QStringLiteral("Clave")},
               {QStringLiteral("Importe"), TipoColumna::Importe},
               {QStringLiteral("Op.Seguro")},
               {QStringLiteral("Arrend.")},
               {QStringLiteral("Referencia catastral")},
               {QStringLiteral("Municipio")},
               {QStringLiteral("Vía pública")},
               {QStringLiteral("Nº")}});
    auto titulo = [&r](const QString& texto) {
        const int f = r.AgregarFila(texto);
        r.CombinarFila(f);
        r.PonerNegritaFila(f);
    };
    titulo(QStringLiteral("Declarados"));
    for (const Declarado347& d : m.declarados)
        r.AgregarFila(QStringList{d.nif, d.nombre, d.provincia, d.clave, TextoCasilla(d.importe),
                                  Marca(d.seguro), Marca(d.arrendamiento)});
    if (!m.inmuebles.isEmpty()) {
        titulo(QStringLiteral("Inmuebles"));
        for (const Inmueble347& i : m.inmuebles)
            r.AgregarFila(QStringList{i.nif, i.nombre, i.codProvincia, QString(),
                                      TextoCasilla(i.importe), QString(), QString(), i.referencia,
                                      i.municipio, Via(i), i.numero});
    }
    // The summary closes the list, in every output.
    titulo(QStringLiteral("Total declarados: %1").arg(m.declarados.size()));
    titulo(QStringLiteral("Total importes: %1").arg(Formato(SumaDeclarados(m), Standard)));
    titulo(QStringLiteral("Total Inmuebles declarados: %1").arg(m.inmuebles.size()));
    titulo(
        QStringLiteral("Total importes de Inmuebles: %1").arg(Formato(SumaInmuebles(m), Standard)));
    return r;
}

void DibujarBorrador347(Impresora& imp, const Modelo347& m, const QString& fuente, double tamano) {
    Borrador347 b(imp, fuente, tamano);
    b.Titulo(QStringLiteral("Modelo 347"));
    b.Texto(QStringLiteral("Ejercicio: %1")
                .arg(m.ejercicio.trimmed().isEmpty() ? QString::number(m.anoFechas)
                                                     : m.ejercicio.trimmed()));
    if (m.desde.isValid())
        b.Texto(QStringLiteral("Periodo: %1 a %2")
                    .arg(FormatoFecha(m.desde, QStringLiteral("short date")),
                         FormatoFecha(m.hasta, QStringLiteral("short date"))));

    b.Seccion(QStringLiteral("Hoja resumen"), {});
    b.Pares({{QStringLiteral("N.I.F."), m.nif}, {QStringLiteral("Nombre"), m.nombre}});
    b.Pares({{QStringLiteral("Teléfono de contacto"), m.telefono},
             {QStringLiteral("Persona de contacto"), m.contacto}});
    b.Pares({{QStringLiteral("N.I.F. del representante legal"), m.representante},
             {QStringLiteral("Número de la declaración anterior"), m.justificante}});
    QStringList tipo;
    if (m.complementaria)
        tipo << QStringLiteral("complementaria (inclusión de datos)");
    if (m.modificacion)
        tipo << QStringLiteral("complementaria (modificación o anulación de datos)");
    if (m.sustitutiva)
        tipo << QStringLiteral("sustitutiva");
    if (!tipo.isEmpty())
        b.Texto(QStringLiteral("Declaración ") + tipo.join(QStringLiteral(", ")));
    b.Pares({{QStringLiteral("Número total de declarados"), m.numDeclarados},
             {QStringLiteral("Importe de las operaciones de los declarados"),
              TextoCasilla(m.totalDeclarados)}});
    b.Pares({{QStringLiteral("Número total de inmuebles"), m.numInmuebles},
             {QStringLiteral("Importe de las operaciones de los inmuebles"),
              TextoCasilla(m.totalInmuebles)}});

    b.Seccion(QStringLiteral("Declarados"),
              {{QStringLiteral("NIF"), 0, 1300},
               {QStringLiteral("Nombre"), 1400, 5200},
               {QStringLiteral("Provincia"), 6800, 1000},
               {QStringLiteral("Clave"), 7900, 700},
               {QStringLiteral("Importe operaciones"), 11000, 2300, true},
               {QStringLiteral("Op.Seguro"), 11400, 1100},
               {QStringLiteral("Arrend."), 12600, 1000}});
    for (const Declarado347& d : m.declarados)
        b.Fila({d.nif, d.nombre, d.provincia, d.clave, TextoCasilla(d.importe), Marca(d.seguro),
                Marca(d.arrendamiento)});
    b.Cierre({{QStringLiteral("Total declarados: "), QString::number(m.declarados.size())},
              {QStringLiteral("Total importes: "), Formato(SumaDeclarados(m), Standard)}});

    // Within the width of a landscape Letter page too, the narrowest a printer may offer.
    b.Seccion(QStringLiteral("Inmuebles"), {{QStringLiteral("NIF"), 0, 1300},
                                            {QStringLiteral("Nombre"), 1400, 3000},
                                            {QStringLiteral("Importe"), 6000, 1500, true},
                                            {QStringLiteral("Referencia catastral"), 6200, 2500},
                                            {QStringLiteral("Municipio"), 8800, 1800},
                                            {QStringLiteral("Vía pública"), 10700, 2500},
                                            {QStringLiteral("Nº"), 13300, 500}});
    for (const Inmueble347& i : m.inmuebles)
        b.Fila({i.nif, i.nombre, TextoCasilla(i.importe), i.referencia, i.municipio, Via(i),
                i.numero});
    b.Cierre(
        {{QStringLiteral("Total Inmuebles declarados: "), QString::number(m.inmuebles.size())},
         {QStringLiteral("Total importes de Inmuebles: "), Formato(SumaInmuebles(m), Standard)}});
    b.Terminar();
}
