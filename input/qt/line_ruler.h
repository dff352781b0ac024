#pragma once

#include <QAbstractScrollArea>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "base/messages.h"
#include "input/layout.h"
#include "input/preview_rows.h"
#include "input/preview_ruler.h"

namespace qor {

// The raw bytes of a line below a scale of columns, with the borders of its fields where they have a fixed width. A border is moved
// with the mouse, or chosen with the left and right keys and moved with Ctrl. Without fields a click, or the space bar at a cursor,
// marks where one ends. It changes nothing itself: it tells what a user asks for.
class ReglaDeLinea : public QAbstractScrollArea {
    Q_OBJECT
public:
    ReglaDeLinea(const TextosIdioma& textos, QWidget* padre);

    // The line, its kind (null for one that has none), and the part of it that belongs to the current cell. With tabs between the
    // fields there are no borders.
    void Mostrar(std::string_view linea, const ClaseDeRegistro* clase, bool porTabuladores, TramoDeLinea tramo);
    // Whether columns can be marked: there are no fields yet.
    void PermitirMarcas(bool permitidas);
    const MarcasDeRegla& Marcas() const { return marcas_; }
    std::size_t Largo() const { return linea_.size(); }

    // The place of a border between columns, in the viewport.
    int XDe(std::size_t columna) const;
    // The border that has the keyboard: a place in the kind's `campos`; -1 for none.
    int Elegido() const { return elegido_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void AnchoPedido(int campo, qulonglong ancho);
    // A field, or its border, was clicked or chosen.
    void CampoTocado(int campo);
    void MarcasCambiadas();

protected:
    void paintEvent(QPaintEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseMoveEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void focusInEvent(QFocusEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;
    void changeEvent(QEvent* evento) override;

private:
    bool ConBordes() const { return hayClase_ && !porTabuladores_ && !clase_.campos.empty(); }
    // The kind as it looks while a border is dragged.
    ClaseDeRegistro ClaseVista() const;
    double ColumnaEn(double x) const;
    int CampoEn(double columna) const;
    QString DescripcionDe(const CampoDeRegistro& campo) const;
    int Letra() const;
    int AltoDeNombres() const;
    void AjustarBarra();
    void AsegurarVisible(std::size_t columna);
    void Elegir(int campo);
    void MoverCursor(std::ptrdiff_t columna);
    void Describir();
    void Senalar(const QPoint& lugar);
    void PintarNombres(QPainter& pintor, const ClaseDeRegistro& clase) const;
    void PintarLinea(QPainter& pintor) const;
    void PintarBordes(QPainter& pintor, const ClaseDeRegistro& clase) const;
    void PintarMarcas(QPainter& pintor) const;
    bool TeclaDeBorde(QKeyEvent* evento);
    bool TeclaDeMarca(QKeyEvent* evento);

    const TextosIdioma& textos_;
    std::string linea_;
    ClaseDeRegistro clase_;
    bool hayClase_ = false;
    bool porTabuladores_ = false;
    bool conMarcas_ = false;
    TramoDeLinea tramo_;
    MarcasDeRegla marcas_;
    int elegido_ = -1;
    std::size_t cursor_ = 0;
    struct Arrastre {
        int campo;
        std::size_t ancho;
    };
    std::optional<Arrastre> arrastre_;
};

}  // namespace qor
