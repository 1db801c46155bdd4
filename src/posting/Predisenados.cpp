#include "posting/Predisenados.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Evaluar.h"
#include "posting/Contabilizar.h"
#include "posting/Periodicos.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <cmath>

const QString MsgNoExistePredisenado =
    QStringLiteral("No existe ese código de Asiento Prediseñado.");

namespace {

const QString Variable = QStringLiteral("VARIABLE");
const QString Anterior = QStringLiteral("ANTERIOR");
const QString DelDia = QStringLiteral("DEL DIA");
const QString Cuadre = QStringLiteral("CUADRE");
const QString Verdadero = QStringLiteral("True");
const QString Falso = QStringLiteral("False");

QString fechaCorta(const QDate& f) {
    return FormatoFecha(f, QStringLiteral("short date"));
}

QString estandar(double v) {
    return Formato(v, QStringLiteral("standard"));
}

// A figure as the evaluator reads it: a point for decimals, no thousands, in parentheses so that
// a negative value can follow any operator.
QString cifra(double v) {
    return QLatin1Char('(') + QString::number(Centimos(v), 'f', 2) + QLatin1Char(')');
}

bool existeSubcuenta(Conexion& datos, const QString& ncuenta) {
    return datos.existe(QStringLiteral("SELECT 1 FROM Cuentas WHERE NCuenta = ?"),
                        {ncuenta.trimmed()});
}

QList<std::pair<QString, QString>> cuentasDe(Conexion& datos, const QStringList& patrones) {
    QString donde;
    QVariantList valores;
    for (const QString& p : patrones) {
        donde += donde.isEmpty() ? QStringLiteral("NCuenta LIKE ?")
                                 : QStringLiteral(" OR NCuenta LIKE ?");
        valores << p;
    }
    QList<std::pair<QString, QString>> r;
    QSqlQuery q = datos.ejecutar(
        QStringLiteral("SELECT NCuenta, Cuenta FROM Cuentas WHERE %1 ORDER BY Cuenta").arg(donde),
        valores);
    while (q.next())
        r.append({q.value(0).toString().trimmed(), q.value(1).toString().trimmed()});
    return r;
}

// The row of the work table whose line has this digit.
int filaDeLinea(const TrabajoPredisenado& t, QChar digito) {
    const QString etiqueta = QStringLiteral("C") + digito;
    for (int i = 0; i < t.size(); ++i)
        if (t[i][ColTrabajo::Etiqueta].compare(etiqueta, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

QString nombreDeCampo(const TrabajoPredisenado& t, int fila, int columna) {
    return t[fila][ColTrabajo::Etiqueta] + QString::number(columna - ColTrabajo::Fecha);
}

// The cell that a field name of three characters ("C13") points at.
const QString& celdaNombrada(const TrabajoPredisenado& t, const QString& nombre,
                             const QString& donde) {
    if (nombre.size() == 3 && nombre.at(0).toUpper() == QLatin1Char('C') &&
        nombre.at(2).isDigit() && nombre.at(2) != QLatin1Char('9')) {
        const int fila = filaDeLinea(t, nombre.at(1));
        if (fila >= 0)
            return t[fila][ColTrabajo::Fecha + nombre.at(2).digitValue()];
    }
    throw Rechazo(QStringLiteral("La fórmula del campo %1 se refiere a %2, que no es un campo de "
                                 "un Apunte del asiento.")
                      .arg(donde, nombre));
}

double importeNombrado(const TrabajoPredisenado& t, const QString& nombre, const QString& donde) {
    const QString& celda = celdaNombrada(t, nombre, donde);
    bool ok = false;
    const double v = ValorImporte(celda, &ok);
    if (!ok || celda.trimmed().isEmpty())
        throw Rechazo(QStringLiteral("La fórmula del campo %1 se refiere a %2, que no tiene un "
                                     "importe.")
                          .arg(donde, nombre.toUpper()));
    return v;
}

QString evaluar(const QString& expresion, const QString& donde, const QString& formula) {
    const ResultadoEvaluar r = Evaluar(NormalizarNumero(expresion));
    if (!r.ok())
        throw Rechazo(QStringLiteral("Error en la fórmula del campo %1 (%2): %3.")
                          .arg(donde, formula, r.mensaje));
    if (!ImporteAdmitido(*r.valor))
        throw Rechazo(QStringLiteral("El resultado de la fórmula del campo %1 (%2) no es un "
                                     "importe válido.")
                          .arg(donde, formula));
    return estandar(*r.valor).trimmed();
}

} // namespace

QString TituloCampoPredi(int campo) {
    static const char* const titulos[CampoPredi::Total] = {"Fecha",
                                                           "Subcuenta",
                                                           "Concepto",
                                                           "Importe",
                                                           "Sector",
                                                           "Documento",
                                                           "Base Imponible de IVA",
                                                           "Cliente/Proveedor",
                                                           "Factura"};
    return campo >= 0 && campo < CampoPredi::Total ? QString::fromUtf8(titulos[campo]) : QString();
}

TipoCelda TipoDeCelda(const QString& celda) {
    const QString c = celda.trimmed();
    if (c.isEmpty())
        return TipoCelda::Ninguno;
    if (c == Variable || c.startsWith(QLatin1String("V=")))
        return TipoCelda::Variable;
    if (c == Anterior)
        return TipoCelda::Anterior;
    if (c == DelDia)
        return TipoCelda::DelDia;
    if (c.startsWith(QLatin1String("F=")))
        return TipoCelda::Formula;
    if (c == Cuadre)
        return TipoCelda::Cuadre;
    return TipoCelda::Fija;
}

QString ValorDeCelda(const QString& celda) {
    const QString c = celda.trimmed();
    switch (TipoDeCelda(c)) {
    case TipoCelda::Fija:
        return c;
    case TipoCelda::Variable:
    case TipoCelda::Formula:
        return c == Variable ? QString() : c.mid(2);
    default:
        return {};
    }
}

QString CeldaDe(TipoCelda tipo, const QString& valor) {
    const QString v = valor.trimmed();
    switch (tipo) {
    case TipoCelda::Ninguno:
        return {};
    case TipoCelda::Fija:
        return v;
    case TipoCelda::Variable:
        return v.isEmpty() ? Variable : QStringLiteral("V=") + v;
    case TipoCelda::Anterior:
        return Anterior;
    case TipoCelda::DelDia:
        return DelDia;
    case TipoCelda::Formula:
        return QStringLiteral("F=") + v;
    case TipoCelda::Cuadre:
        return Cuadre;
    }
    return {};
}

QList<TipoCelda> TiposDeCampo(int campo) {
    using T = TipoCelda;
    switch (campo) {
    case CampoPredi::Fecha:
        return {T::Anterior, T::Fija, T::DelDia, T::Variable};
    case CampoPredi::Concepto:
        return {T::Anterior, T::Fija, T::Formula, T::Variable};
    case CampoPredi::Importe:
        return {T::Anterior, T::Fija, T::Formula, T::Variable, T::Cuadre};
    case CampoPredi::Sector:
    case CampoPredi::Documento:
        return {T::Anterior, T::Fija, T::Variable};
    case CampoPredi::Subcuenta:
    case CampoPredi::Base:
    case CampoPredi::CliPro:
    case CampoPredi::Factura:
        return {T::Fija, T::Formula, T::Variable};
    default:
        return {};
    }
}

QString PalabraTipo(TipoCelda tipo, int campo) {
    switch (tipo) {
    case TipoCelda::Ninguno:
        return {};
    case TipoCelda::Fija: {
        const bool femenino = campo == CampoPredi::Fecha || campo == CampoPredi::Subcuenta ||
                              campo == CampoPredi::Base || campo == CampoPredi::Factura;
        return femenino ? QStringLiteral("FIJA") : QStringLiteral("FIJO");
    }
    case TipoCelda::Variable:
        return Variable;
    case TipoCelda::Anterior:
        return Anterior;
    case TipoCelda::DelDia:
        return DelDia;
    case TipoCelda::Formula:
        return QStringLiteral("FORMULA");
    case TipoCelda::Cuadre:
        return Cuadre;
    }
    return {};
}

std::optional<TipoCelda> TipoDePalabra(const QString& palabra) {
    const QString p = palabra.trimmed().toUpper();
    if (p == QLatin1String("FIJA") || p == QLatin1String("FIJO"))
        return TipoCelda::Fija;
    if (p == Variable)
        return TipoCelda::Variable;
    if (p == Anterior)
        return TipoCelda::Anterior;
    if (p == DelDia)
        return TipoCelda::DelDia;
    if (p == QLatin1String("FORMULA") || p == QStringLiteral("FÓRMULA"))
        return TipoCelda::Formula;
    if (p == Cuadre)
        return TipoCelda::Cuadre;
    return std::nullopt;
}

QString CodigoPredi(int codigo) {
    return Formato(codigo, QStringLiteral("00#"));
}

std::optional<int> LeerCodigoPredi(const QString& texto) {
    const QString t = texto.trimmed();
    if (t.size() != 3)
        return std::nullopt;
    for (const QChar c : t)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return std::nullopt;
    return t.toInt();
}

QList<ResumenPredisenado> ListaPredisenados(Conexion& bavar) {
    QList<ResumenPredisenado> r;
    QSqlQuery q = bavar.ejecutar(QStringLiteral(
        "SELECT Codigo, Nombre FROM AsPredi GROUP BY Codigo, Nombre ORDER BY Codigo, Nombre"));
    while (q.next())
        r << ResumenPredisenado{q.value(0).toInt(), q.value(1).toString().trimmed()};
    return r;
}

std::optional<Predisenado> LeerPredisenado(Conexion& bavar, int codigo) {
    QSqlQuery q = bavar.ejecutar(
        QStringLiteral("SELECT Nombre, Etiqueta, DH, Fecha, Subcuenta, Concepto, Importe, Sector, "
                       "Documento, BaseImp, CliPro, Factura, LibroIVA, Mod347, NCuenta, NCliPro, "
                       "Coment FROM AsPredi WHERE Codigo = ? ORDER BY rowid"),
        {codigo});
    Predisenado p;
    p.Codigo = codigo;
    while (q.next()) {
        p.Nombre = q.value(0).toString().trimmed();
        LineaPredisenado l;
        l.Etiqueta = q.value(1).toString().trimmed();
        l.DH = q.value(2).toString().trimmed();
        for (int c = 0; c < CampoPredi::Total; ++c)
            l.Campos[c] = q.value(3 + c).toString();
        l.LibroIVA = q.value(12).toInt() != 0;
        l.Mod347 = q.value(13).toInt() != 0;
        l.NCuenta = q.value(14).toString().trimmed();
        l.NCliPro = q.value(15).toString().trimmed();
        // A null comment reads as empty.
        l.Coment = q.value(16).toString();
        p.Lineas << l;
    }
    if (p.Lineas.isEmpty())
        return std::nullopt;
    return p;
}

bool ExistePredisenado(Conexion& bavar, int codigo) {
    return bavar.existe(QStringLiteral("SELECT 1 FROM AsPredi WHERE Codigo = ?"), {codigo});
}

void GuardarPredisenado(Conexion& bavar, const Predisenado& p) {
    Transaccion t(bavar);
    bavar.ejecutar(QStringLiteral("DELETE FROM AsPredi WHERE Codigo = ?"), {p.Codigo});
    for (const LineaPredisenado& l : p.Lineas) {
        QVariantList v{p.Codigo, p.Nombre.trimmed(), l.Etiqueta, l.DH};
        for (const QString& c : l.Campos)
            v << c;
        v << (l.LibroIVA ? -1 : 0) << (l.Mod347 ? -1 : 0) << l.NCuenta.trimmed()
          << l.NCliPro.trimmed() << l.Coment;
        bavar.ejecutar(QStringLiteral("INSERT INTO AsPredi (Codigo, Nombre, Etiqueta, DH, Fecha, "
                                      "Subcuenta, Concepto, Importe, Sector, Documento, BaseImp, "
                                      "CliPro, Factura, LibroIVA, Mod347, NCuenta, NCliPro, "
                                      "Coment) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
                                      "?, ?, ?, ?)"),
                       v);
    }
    t.confirmar();
}

bool EliminarPredisenado(Conexion& bavar, int codigo) {
    Transaccion t(bavar);
    const int n = bavar.ejecutar(QStringLiteral("DELETE FROM AsPredi WHERE Codigo = ?"), {codigo})
                      .numRowsAffected();
    t.confirmar();
    return n > 0;
}

bool EliminarPredisenadoPreguntando(const Sesion& s, Dialogo& d, int codigo,
                                    const QString& nombre) {
    if (!d.Preguntar(QStringLiteral("Está seguro de que desea eliminar el asiento prediseñado ") +
                     CodigoPredi(codigo) + QStringLiteral(", ") + nombre.trimmed() +
                     QLatin1Char('?')))
        return false;
    bool hecho = false;
    try {
        Conexion c = AbrirBavar(s);
        hecho = EliminarPredisenado(c, codigo);
    } catch (const ErrorQuilmar&) {
        hecho = false;
    }
    if (!hecho)
        d.Informar(MsgNoSePudoEliminar);
    return hecho;
}

QList<std::pair<QString, QString>> ClientesPredisenado(Conexion& datos) {
    return cuentasDe(datos, {QStringLiteral("443%"), QStringLiteral("444%")});
}

QList<std::pair<QString, QString>> ProveedoresPredisenado(Conexion& datos) {
    return cuentasDe(datos,
                     {QStringLiteral("240%"), QStringLiteral("241%"), QStringLiteral("2164%"),
                      QStringLiteral("2165%"), QStringLiteral("2173%")});
}

TrabajoPredisenado TrabajoDe(const Predisenado& p) {
    TrabajoPredisenado t;
    for (const LineaPredisenado& l : p.Lineas) {
        QStringList fila;
        fila << CodigoPredi(p.Codigo) << p.Nombre << l.DH.trimmed();
        for (const QString& c : l.Campos)
            fila << c.trimmed();
        fila << (l.LibroIVA ? Verdadero : Falso) << (l.Mod347 ? Verdadero : Falso) << l.NCuenta
             << l.NCliPro << l.Etiqueta << l.Coment;
        t << fila;
    }
    return t;
}

bool LineaConVariables(const QStringList& fila) {
    for (int c = ColTrabajo::DH; c <= ColTrabajo::Mod347; ++c)
        if (fila[c] == Variable || fila[c].startsWith(QLatin1String("V=")))
            return true;
    return false;
}

// ---- The answers of one line --------------------------------------------------------------

RespuestasApunte::RespuestasApunte(TrabajoPredisenado& trabajo, int linea, const QDate& hoy,
                                   const QString& fechaRecordada)
    : t_(trabajo), linea_(linea) {
    const QStringList& f = t_[linea_];
    Codigo = f[ColTrabajo::Codigo];
    NombreAsiento = f[ColTrabajo::Nombre];
    Etiqueta = f[ColTrabajo::Etiqueta];
    DH = f[ColTrabajo::DH];
    Ticado = f[ColTrabajo::LibroIVA] == Verdadero || f[ColTrabajo::Mod347] == Verdadero;
    for (int c = 0; c < CampoPredi::Total; ++c) {
        const QString& celda = f[ColTrabajo::Fecha + c];
        Variable[c] = TipoDeCelda(celda) == TipoCelda::Variable;
        if (Variable[c])
            Valores[c] = ValorDeCelda(celda);
        else if (celda == DelDia)
            Valores[c] = fechaCorta(hoy);
        else
            Valores[c] = celda;
    }
    if (Variable[CampoPredi::Fecha] && Valores[CampoPredi::Fecha].isEmpty())
        Valores[CampoPredi::Fecha] = fechaRecordada;
}

QString RespuestasApunte::NombreCampo(int campo) const {
    return Etiqueta + QString::number(campo);
}

bool RespuestasApunte::Aceptar(const Sesion& s, Dialogo& d) {
    std::array<QString, CampoPredi::Total> nuevos;
    auto falta = [&](const QString& texto) {
        d.Informar(texto);
        return false;
    };
    try {
        Conexion datos = AbrirDatos(s);
        for (int c = 0; c < CampoPredi::Total; ++c) {
            if (!Variable[c])
                continue;
            const QString v = Valores[c].trimmed();
            switch (c) {
            case CampoPredi::Fecha: {
                if (v.isEmpty())
                    return falta(QStringLiteral("Tiene que introducir la Fecha."));
                const QDate f = FechaDeTexto(v);
                if (!f.isValid())
                    return falta(QStringLiteral("La Fecha introducida no es correcta."));
                nuevos[c] = fechaCorta(f);
                break;
            }
            case CampoPredi::Subcuenta:
                if (v.isEmpty())
                    return falta(QStringLiteral("Tiene que introducir la Subcuenta."));
                if (!existeSubcuenta(datos, v))
                    return falta(QStringLiteral("No existe la subcuenta %1.").arg(v));
                nuevos[c] = v;
                break;
            case CampoPredi::Concepto:
                if (v.isEmpty())
                    return falta(QStringLiteral("Tiene que introducir el Concepto."));
                nuevos[c] = TextoCampo(Campo::Concepto, v);
                break;
            case CampoPredi::Importe: {
                if (v.isEmpty())
                    return falta(QStringLiteral("Tiene que introducir el Importe."));
                const std::optional<double> i = LeerImporte(v);
                if (!i)
                    return falta(QStringLiteral("El Importe introducido no es correcto."));
                nuevos[c] = estandar(*i);
                break;
            }
            case CampoPredi::Sector:
                if (!v.isEmpty() && !SectoresConVacio(s).contains(v))
                    return falta(QStringLiteral("No existe el sector %1.").arg(v));
                nuevos[c] = v;
                break;
            case CampoPredi::Documento:
                nuevos[c] = TextoCampo(Campo::Documento, v);
                break;
            case CampoPredi::Base:
                if (v.isEmpty()) {
                    if (Ticado)
                        return falta(
                            QStringLiteral("Tiene que introducir la Base Imponible de IVA."));
                } else {
                    const std::optional<double> b = LeerImporte(v);
                    if (!b)
                        return falta(
                            QStringLiteral("La Base Imponible de IVA introducida no es correcta."));
                    nuevos[c] = estandar(*b);
                }
                break;
            case CampoPredi::CliPro:
                if (v.isEmpty()) {
                    if (Ticado)
                        return falta(QStringLiteral("Tiene que introducir el Cliente/Proveedor."));
                } else if (!existeSubcuenta(datos, v)) {
                    return falta(QStringLiteral("No existe la subcuenta %1.").arg(v));
                }
                nuevos[c] = v;
                break;
            case CampoPredi::Factura:
                if (v.isEmpty() && Ticado)
                    return falta(QStringLiteral("Tiene que introducir el número de Factura."));
                nuevos[c] = TextoCampo(Campo::NFactura, v);
                break;
            }
        }
    } catch (const ErrorQuilmar& e) {
        d.Informar(e.mensaje());
        return false;
    }
    for (int c = 0; c < CampoPredi::Total; ++c)
        if (Variable[c]) {
            t_[linea_][ColTrabajo::Fecha + c] = nuevos[c];
            Valores[c] = nuevos[c];
        }
    fechaTecleada_ = Variable[CampoPredi::Fecha] ? nuevos[CampoPredi::Fecha] : QString();
    return true;
}

// ---- AsTipo -------------------------------------------------------------------------------

std::optional<AsientoPredisenado> AsTipo(const Sesion& s, Dialogo& d, PantallaApunte& pantalla,
                                         int codigo, const QDate& hoy) {
    try {
        std::optional<Predisenado> p;
        {
            Conexion c = AbrirBavar(s);
            p = LeerPredisenado(c, codigo);
        }
        if (!p) {
            d.Informar(MsgNoExistePredisenado);
            return std::nullopt;
        }
        // The work table lives only here, so every way out leaves it empty.
        TrabajoPredisenado t = TrabajoDe(*p);

        // Asking, line by line; a cancel leaves without doing anything.
        for (int i = 0; i < t.size(); ++i)
            if (LineaConVariables(t[i]) && !pantalla.Pedir(t, i))
                return std::nullopt;
        for (QStringList& f : t)
            if (f[ColTrabajo::Fecha] == DelDia)
                f[ColTrabajo::Fecha] = fechaCorta(hoy);

        // ANTERIOR: lines go in order, so a chain carries the first real value down.
        for (int i = 0; i < t.size(); ++i)
            for (int c = 0; c < ColTrabajo::Total; ++c)
                if (t[i][c] == Anterior)
                    t[i][c] = i > 0 ? t[i - 1][c] : QString();

        // Formulas that copy a field of an earlier line.
        for (int i = 0; i < t.size(); ++i)
            for (int c = ColTrabajo::Subcuenta; c <= ColTrabajo::Factura; ++c) {
                if (c == ColTrabajo::Importe || c == ColTrabajo::BaseImp ||
                    !t[i][c].startsWith(QLatin1String("F=")))
                    continue;
                const QString formula = t[i][c];
                const QString nombre = formula.size() >= 4
                                           ? QStringLiteral("C") + formula.at(3) + formula.back()
                                           : formula.mid(2);
                const QString valor = celdaNombrada(t, nombre, nombreDeCampo(t, i, c));
                t[i][c] = valor;
            }

        // Arithmetic of amounts and bases: each field name gives way to its figure.
        for (int i = 0; i < t.size(); ++i)
            for (int c :
                 {static_cast<int>(ColTrabajo::Importe), static_cast<int>(ColTrabajo::BaseImp)}) {
                if (!t[i][c].startsWith(QLatin1String("F=")))
                    continue;
                const QString formula = t[i][c];
                const QString donde = nombreDeCampo(t, i, c);
                const QString texto = formula.mid(2);
                QString expresion;
                for (int k = 0; k < texto.size(); ++k) {
                    if (texto.at(k).toUpper() == QLatin1Char('C')) {
                        expresion += cifra(importeNombrado(t, texto.mid(k, 3), donde));
                        k += 2;
                    } else {
                        expresion += texto.at(k);
                    }
                }
                t[i][c] = evaluar(expresion, donde, formula);
            }

        // CUADRE: the signed sum of the lines before it.
        for (int i = 0; i < t.size(); ++i) {
            if (t[i][ColTrabajo::Importe] != Cuadre)
                continue;
            QString expresion;
            for (int j = 0; j < i; ++j) {
                const QString nombre = nombreDeCampo(t, j, ColTrabajo::Importe);
                bool ok = false;
                const double v = ValorImporte(t[j][ColTrabajo::Importe], &ok);
                if (!ok || t[j][ColTrabajo::Importe].trimmed().isEmpty())
                    throw Rechazo(QStringLiteral("El Importe del campo %1 no es correcto: no se "
                                                 "puede cuadrar el asiento.")
                                      .arg(nombre));
                expresion += (t[j][ColTrabajo::DH] == QLatin1String("D") ? QStringLiteral("+")
                                                                         : QStringLiteral("-")) +
                             cifra(v);
            }
            t[i][ColTrabajo::Importe] =
                evaluar(expresion.isEmpty() ? QStringLiteral("0") : expresion,
                        nombreDeCampo(t, i, ColTrabajo::Importe), Cuadre);
        }

        AsientoPredisenado r;
        Conexion datos = AbrirDatos(s);
        for (int i = 0; i < t.size(); ++i) {
            const QStringList& f = t[i];
            LineaF7 l;
            l.NCuenta = f[ColTrabajo::Subcuenta].trimmed();
            if (l.NCuenta.isEmpty() || !existeSubcuenta(datos, l.NCuenta))
                throw Rechazo(QStringLiteral("No existe la subcuenta %1 del Apunte %2.")
                                  .arg(l.NCuenta, f[ColTrabajo::Etiqueta]));
            l.Concepto = TextoCampo(Campo::Concepto, f[ColTrabajo::Concepto]);
            bool ok = false;
            const double importe = ValorImporte(f[ColTrabajo::Importe], &ok);
            if (!ok || !ImporteAdmitido(importe))
                throw Rechazo(QStringLiteral("El Importe del campo %1 no es correcto.")
                                  .arg(nombreDeCampo(t, i, ColTrabajo::Importe)));
            // The absolute value: a negative CUADRE stays on its own side, and the entry then
            // shows the difference that the maintenance screen refuses to post.
            if (f[ColTrabajo::DH] == QLatin1String("D"))
                l.Debe = Centimos(std::fabs(importe));
            else
                l.Haber = Centimos(std::fabs(importe));
            l.Documento = TextoCampo(Campo::Documento, f[ColTrabajo::Documento]);
            l.Sector = f[ColTrabajo::Sector].trimmed();
            l.Contra = f[ColTrabajo::CliPro].trimmed();
            l.Factura = f[ColTrabajo::Factura].trimmed();
            l.Base = f[ColTrabajo::BaseImp].trimmed();
            l.LibroIva = f[ColTrabajo::LibroIVA];
            l.L347 = f[ColTrabajo::Mod347];
            r.Lineas << l;
        }
        r.Fecha = t.isEmpty() ? QDate() : FechaDeTexto(t.last()[ColTrabajo::Fecha]);
        if (!r.Fecha.isValid())
            throw Rechazo(QStringLiteral("La Fecha introducida no es correcta."));
        return r;
    } catch (const ErrorQuilmar& e) {
        d.Informar(e.mensaje());
        return std::nullopt;
    }
}
