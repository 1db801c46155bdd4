#include "platform/ExportarRejilla.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/Rejilla.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextStream>
#include <QUuid>
#include <xlsxwriter.h>

namespace {

QString Entrecomillar(QStringView celda, QChar separador) {
    if (separador == u'\t' || (!celda.contains(separador) && !celda.contains(u'"')))
        return celda.toString();
    QString r = celda.toString();
    r.replace(u'"', QStringLiteral("\"\""));
    return u'"' + r + u'"';
}

[[noreturn]] void NoSePudo(const QString& ruta) {
    throw ErrorQuilmar(
        QStringLiteral("No se pudo escribir el archivo %1.").arg(QDir::toNativeSeparators(ruta)));
}

void ExportarTexto(const Rejilla& rejilla, const QString& ruta, QChar separador, bool bom) {
    QSaveFile archivo(ruta);
    if (!archivo.open(QIODevice::WriteOnly))
        NoSePudo(ruta);
    {
        QTextStream salida(&archivo);
        salida.setEncoding(QStringConverter::Utf8);
        salida.setGenerateByteOrderMark(bom);
        EscribirDelimitado(rejilla, salida, separador);
        salida.flush();
        if (salida.status() != QTextStream::Ok)
            archivo.cancelWriting();
    }
    if (!archivo.commit())
        NoSePudo(ruta);
}

// Formats of the workbook by the kind of column and whether the cell is bold.
class Formatos {
public:
    explicit Formatos(lxw_workbook* libro) : libro_(libro) {}
    lxw_format* de(TipoColumna tipo, bool negrita) {
        lxw_format*& f = cache_[int(tipo)][negrita];
        if (!f) {
            f = workbook_add_format(libro_);
            if (negrita)
                format_set_bold(f);
            switch (tipo) {
            case TipoColumna::Importe:
                format_set_num_format(f, "#,##0.00");
                break;
            case TipoColumna::Entero:
                format_set_num_format(f, "#,##0");
                break;
            case TipoColumna::Fecha:
                format_set_num_format(f, "dd/mm/yyyy");
                break;
            default:
                break;
            }
        }
        return f;
    }

private:
    lxw_workbook* libro_;
    lxw_format* cache_[5][2] = {};
};

void ExportarXlsx(const Rejilla& rejilla, const QString& ruta) {
    constexpr int MaxFilasExcel = 1048576;
    constexpr int MaxTextoCelda = 32767;
    if (rejilla.Filas() + 1 > MaxFilasExcel)
        throw ErrorQuilmar(
            QStringLiteral("La lista tiene demasiadas filas para una hoja de Excel."));

    // Written beside the target under another name, then moved over it, so that a failure
    // leaves the old file whole.
    const QFileInfo info(ruta);
    if (!info.absoluteDir().exists())
        NoSePudo(ruta);
    const QString temporal = info.absoluteDir().filePath(
        QStringLiteral(".%1.%2.tmp")
            .arg(info.fileName(), QUuid::createUuid().toString(QUuid::Id128)));
    const QByteArray nombre = QFile::encodeName(temporal);
    lxw_workbook_options opciones = {};
    opciones.constant_memory = LXW_TRUE;
    lxw_workbook* libro = workbook_new_opt(nombre.constData(), &opciones);
    if (!libro)
        NoSePudo(ruta);
    lxw_worksheet* hoja = workbook_add_worksheet(libro, "Hoja1");
    Formatos formatos(libro);
    lxw_format* cabecera = workbook_add_format(libro);
    format_set_bold(cabecera);

    // Widths: the longest text of each column, header included, in characters.
    const int columnas = rejilla.Columnas();
    QList<qsizetype> anchos(columnas, 0);
    for (int c = 0; c < columnas; ++c)
        anchos[c] = rejilla.columna(c).titulo.size();
    for (int f = 0; f < rejilla.Filas(); ++f) {
        const auto tramo = rejilla.Combinada(f);
        for (int c = 0; c < columnas; ++c)
            if (!tramo || c != tramo->desde) // a merged text spreads over its neighbours
                anchos[c] = qMax(anchos[c], rejilla.celda(f, c).size());
    }
    for (int c = 0; c < columnas; ++c)
        worksheet_set_column(hoja, lxw_col_t(c), lxw_col_t(c), qBound(6.0, anchos[c] + 2.0, 60.0),
                             nullptr);
    worksheet_freeze_panes(hoja, 1, 0);

    lxw_error e = LXW_NO_ERROR;
    auto texto = [&](lxw_row_t f, lxw_col_t c, QStringView s, lxw_format* formato) {
        const QByteArray utf8 = s.left(MaxTextoCelda).toUtf8();
        if (e == LXW_NO_ERROR)
            e = worksheet_write_string(hoja, f, c, utf8.constData(), formato);
    };
    for (int c = 0; c < columnas; ++c)
        texto(0, lxw_col_t(c), rejilla.columna(c).titulo, cabecera);
    for (int f = 0; f < rejilla.Filas() && e == LXW_NO_ERROR; ++f) {
        const lxw_row_t fila = lxw_row_t(f + 1);
        const auto tramo = rejilla.Combinada(f);
        for (int c = 0; c < columnas; ++c) {
            const QStringView s = rejilla.celda(f, c);
            const bool negrita = rejilla.Negrita(f, c);
            if (s.isEmpty()) {
                if (negrita)
                    worksheet_write_blank(hoja, fila, lxw_col_t(c),
                                          formatos.de(TipoColumna::Texto, true));
                continue;
            }
            const TipoColumna tipo =
                tramo && c == tramo->desde ? TipoColumna::Texto : rejilla.columna(c).tipo;
            lxw_format* formato = formatos.de(tipo, negrita);
            switch (tipo) {
            case TipoColumna::Importe:
            case TipoColumna::Entero:
            case TipoColumna::Numero:
                if (const auto v = ValorCelda(s)) {
                    e = worksheet_write_number(hoja, fila, lxw_col_t(c), *v, formato);
                    continue;
                }
                break;
            case TipoColumna::Fecha:
                if (const QDate d = FechaCelda(s); d.isValid()) {
                    lxw_datetime dt = {d.year(), d.month(), d.day(), 0, 0, 0};
                    e = worksheet_write_datetime(hoja, fila, lxw_col_t(c), &dt, formato);
                    continue;
                }
                break;
            case TipoColumna::Texto:
                break;
            }
            texto(fila, lxw_col_t(c), s, formatos.de(TipoColumna::Texto, negrita));
        }
    }
    const lxw_error cierre = workbook_close(libro);
    if (e != LXW_NO_ERROR || cierre != LXW_NO_ERROR) {
        QFile::remove(temporal);
        NoSePudo(ruta);
    }
    QFile::remove(ruta);
    if (!QFile::rename(temporal, ruta)) {
        QFile::remove(temporal);
        NoSePudo(ruta);
    }
}

} // namespace

std::optional<FormatoExportacion> FormatoExportacionDeNombre(const QString& nombre) {
    const QString n = nombre.trimmed().toLower();
    if (n == QLatin1String("xlsx"))
        return FormatoExportacion::Xlsx;
    if (n == QLatin1String("txt"))
        return FormatoExportacion::Texto;
    if (n == QLatin1String("csv"))
        return FormatoExportacion::Csv;
    return std::nullopt;
}

void EscribirDelimitado(const Rejilla& rejilla, QTextStream& salida, QChar separador) {
    const int columnas = rejilla.Columnas();
    for (int c = 0; c < columnas; ++c) {
        if (c > 0)
            salida << separador;
        salida << Entrecomillar(rejilla.columna(c).titulo, separador);
    }
    salida << u'\n';
    QString linea;
    for (int f = 0; f < rejilla.Filas(); ++f) {
        // A row whose cells need no quotes is its kept text with the separator in place of the
        // tabs: one write instead of a search and a copy per cell (a long list goes much faster).
        const QStringView texto = rejilla.TextoFila(f);
        if (separador == u'\t' || (!texto.contains(separador) && !texto.contains(u'"'))) {
            if (separador == u'\t') {
                salida << texto;
            } else {
                linea = texto.toString();
                linea.replace(u'\t', separador);
                salida << linea;
            }
            for (qsizetype c = texto.count(u'\t') + 1; c < columnas; ++c)
                salida << separador;
            salida << u'\n';
            continue;
        }
        for (int c = 0; c < columnas; ++c) {
            if (c > 0)
                salida << separador;
            salida << Entrecomillar(rejilla.celda(f, c), separador);
        }
        salida << u'\n';
    }
}

void ExportarRejilla(const Rejilla& rejilla, const QString& ruta, FormatoExportacion formato) {
    switch (formato) {
    case FormatoExportacion::Xlsx:
        ExportarXlsx(rejilla, ruta);
        break;
    case FormatoExportacion::Texto:
        ExportarTexto(rejilla, ruta, u'\t', false);
        break;
    case FormatoExportacion::Csv:
        ExportarTexto(rejilla, ruta, u';', true);
        break;
    }
}

bool ExportarRejilla(const Rejilla& rejilla, const QString& ruta, FormatoExportacion formato,
                     Dialogo& dialogo) {
    if (QFileInfo::exists(ruta) && !dialogo.Preguntar(PreguntaSustituir))
        return false;
    ExportarRejilla(rejilla, ruta, formato);
    return true;
}
