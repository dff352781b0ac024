#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <QString>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/line_index.h"
#include "base/messages.h"
#include "input/check_line.h"
#include "input/layout.h"
#include "input/preview_findings.h"
#include "input/preview_rows.h"

namespace qor {

// The lines of an input file that a table shows at the moment, split by the specification: a window that moves over the file. A row
// is a line; the headings are the names of the main record's fields, and those of the line numbers stand beside the rows. Where the
// file has records of several kinds the first column tells which one a line is, with items indented under their order, and a value
// of another kind bears the name of its field. Behind the last field stands what no field takes.
class ModeloDeRegistros : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Papel { NombreEnCelda = Qt::UserRole };  // the name of the field in front of the value

    ModeloDeRegistros(const TextosIdioma& textos, QObject* padre);

    // Nothing given here is owned but the index; all of it has to stay until it is replaced. Without an index there are no lines.
    void PonerArchivo(std::shared_ptr<IndiceDeLineas> indice, int archivo);
    void PonerDiseno(std::shared_ptr<const DisenoDeEntrada> diseno);
    void PonerHallazgos(const HallazgosVistos* hallazgos) { hallazgos_ = hallazgos; }
    void PonerIconos(const QIcon& error, const QIcon& aviso);
    void HallazgosCambiados();

    // Shows so many lines from one on, counted from 0; fewer at the end of the file.
    void Mover(std::uint64_t primera, int filas);
    std::uint64_t Primera() const { return primera_; }
    const DisenoDeEntrada& Diseno() const { return *diseno_; }
    int Archivo() const { return archivo_; }

    // Of a row: its bytes, its kind (-1 where it has none), and where a column of it stands.
    const std::string& Linea(int fila) const { return filas_.at(static_cast<std::size_t>(fila)).linea; }
    const ClaseDeRegistro* Clase(int fila) const;
    TramoDeLinea Tramo(int fila, int columna) const;
    // The field of a column in a row: a place in the kind's `campos`; -1 for none. And back.
    int CampoDeColumna(int fila, int columna) const;
    int ColumnaDeCampo(int campo) const { return campo + (conClase_ ? 1 : 0); }
    bool ConClase() const { return conClase_; }
    int ColumnaDeResto() const { return columnas_ - 1; }
    // A line was seen that no field takes the whole of.
    bool HayResto() const { return hayResto_; }
    // The findings of a row, in words; of a column, or of the line as a whole with -1.
    QString Motivos(int fila, int columna) const;

    int rowCount(const QModelIndex& padre = {}) const override { return padre.isValid() ? 0 : static_cast<int>(filas_.size()); }
    int columnCount(const QModelIndex& padre = {}) const override { return padre.isValid() ? 0 : columnas_; }
    QVariant data(const QModelIndex& lugar, int papel) const override;
    QVariant headerData(int seccion, Qt::Orientation orientacion, int papel) const override;

private:
    struct Fila {
        std::string linea;
        int clase = -1;
        std::vector<TramoDeLinea> tramos;
    };
    struct Senal {
        bool error = false;
        bool aviso = false;
        bool Hay() const { return error || aviso; }
    };

    void ContarColumnas();
    void Partir(Fila& fila) const;
    static bool TieneResto(const Fila& fila) { return !fila.tramos.empty() && fila.tramos.back().largo > 0; }
    bool EsDe(const HallazgoDeDatos& hallazgo, int fila, int columna) const;
    Senal SenalDe(int fila, int columna) const;
    QString NombreDeClase(int fila) const;
    QString NombreDeCampo(int fila, int columna) const;
    QString Valor(int fila, int columna) const;
    const ClaseDeRegistro* ClasePrincipal() const;

    const TextosIdioma& textos_;
    std::shared_ptr<IndiceDeLineas> indice_;
    std::shared_ptr<const DisenoDeEntrada> diseno_;
    ReglasDeValores sinReglas_;
    RevisorDeLineas revisor_;  // tells the kinds of lines
    const HallazgosVistos* hallazgos_ = nullptr;
    QIcon error_;
    QIcon aviso_;
    int archivo_ = 0;
    std::uint64_t primera_ = 0;
    std::vector<Fila> filas_;
    int columnas_ = 1;
    bool conClase_ = false;
    bool hayResto_ = false;
};

}  // namespace qor
