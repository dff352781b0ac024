#pragma once

#include <QFont>
#include <QPainter>
#include <QString>
#include <functional>
#include <vector>

#include "print/device.h"

class QPagedPaintDevice;

namespace qor {

// Paper, or a PDF file. A line is laid out when it ends: what stands between two tabs is a cell, and a text that is wider than its
// cell goes on below, so that nothing covers another text or runs off the paper. A line that no longer fits begins a page.
class DispositivoQt : public Dispositivo {
public:
    // The paper must outlive the device.
    explicit DispositivoQt(QPagedPaintDevice& papel);
    ~DispositivoQt() override;
    DispositivoQt(const DispositivoQt&) = delete;
    DispositivoQt& operator=(const DispositivoQt&) = delete;

    // Whether the paper takes anything.
    bool Abierto() const { return abierto_; }

    // What is done when the page ends in front of a line; it passes to the next page and prints its head. Without it there is none.
    void AlAcabarLaPagina(std::function<void(Dispositivo&)> pasar) { pasar_ = std::move(pasar); }

    void Item(std::string_view texto) override;
    void Tab(int columna) override;
    void FinDeLinea() override;
    Letra LetraActual() const override { return letra_; }
    void PonerLetra(const Letra& letra) override { letra_ = letra; }
    void PonerEnfasis(Enfasis enfasis, bool puesto) override;
    int OrigenIzquierdo() const override { return origen_; }
    void PonerOrigenIzquierdo(int twips) override { origen_ = twips; }
    // On paper that is shorter than A4 the position runs ahead, so that a page's end comes in time.
    int PosicionVertical() const override;
    void NuevaPagina() override;
    int NumeroDePagina() const override { return pagina_; }
    void Terminar() override;

protected:
    // Paints a text that stands alone; lengths are twips of the layout from the corner of the paper, `y` is the base line.
    virtual void Pintar(double x, double y, const QString& texto, const QFont& fuente);

private:
    struct Trozo {
        QString texto;
        QFont fuente;
    };
    struct Celda {
        double x = 0;     // twips
        double paso = 0;  // width of one character where it begins
        std::vector<Trozo> trozos;
    };

    void AcabarPagina();
    QFont FuenteActual() const;
    double Ancho(const Trozo& trozo) const;
    double AnchoDeCaracter() const;
    double AltoDeLinea(const QFont& fuente) const;
    // The lines of a cell, at most `ancho` wide.
    std::vector<std::vector<Trozo>> Partir(const Celda& celda, double ancho) const;
    std::size_t CuantosCaben(const Trozo& trozo, double ancho) const;
    double Derecha() const;
    double Abajo() const;

    QPagedPaintDevice& papel_;
    std::function<void(Dispositivo&)> pasar_;
    bool pasando_ = false;
    QPainter pintor_;
    bool abierto_ = false;
    double escala_ = 1;
    double puntosPorTwip_ = 1;
    double anchoDePapel_ = 0;
    double altoDePapel_ = 0;

    Letra letra_{"Arial", 10, false};
    bool titulo_ = false;
    bool clave_ = false;
    int origen_ = 0;
    double y_ = 0;  // top of the line
    int pagina_ = 1;
    std::vector<Celda> linea_;
};

}  // namespace qor
