#pragma once

#include <deque>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/view.h"
#include "editor/window.h"

namespace qor::pruebas {

// A view that keeps what it was told. Questions and file dialogs are answered from `respuestas` and `archivos`; without an answer
// they are cancelled.
class VistaDePrueba : public Vista {
public:
    std::vector<std::string> avisos;  // messages and questions, by their text
    std::vector<std::string> focos;   // controls that got the focus
    std::deque<Respuesta> respuestas;
    std::deque<std::filesystem::path> archivos;
    std::vector<Mensaje> mensajes;         // as they were told
    std::vector<PedidoDeArchivo> pedidos;  // of file dialogs
    std::string detalles;                  // what the system said behind the messages
    std::function<void()> alPreguntar;     // what else happens while a question stands

    // The messages since the last call, joined by a blank.
    std::string TomarAvisos();

    void Mostrar(const Mensaje& mensaje, Icono icono) override;
    Respuesta Preguntar(const Mensaje& mensaje, Botones botones) override;
    std::optional<std::filesystem::path> ElegirParaAbrir(const PedidoDeArchivo& pedido) override;
    std::optional<std::filesystem::path> ElegirParaGrabar(const PedidoDeArchivo& pedido) override;
    std::optional<std::filesystem::path> ElegirCarpeta(const PedidoDeArchivo& pedido) override;
    void PunteroOcupado(bool ocupado) override;
    void MostrarFila(Tabla tabla, int fila) override;
    void Enfocar(const std::string& control) override;
    void MostrarTexto(const std::string& texto) override;
    bool OfreceEditor() const override { return false; }
    bool AbrirEditor(const std::filesystem::path& ruta) override;

private:
    std::optional<std::filesystem::path> SiguienteArchivo(const PedidoDeArchivo& pedido);
};

// An editor with a view that records, and texts that tell their number: message 333 is "<333>". Rows are written with "|" between
// their columns; columns at the end can be left out.
class VentanaDePrueba {
public:
    VentanaDePrueba();

    TextosIdioma textos;
    VistaDePrueba vista;
    Documento documento;
    Ventana ventana;

    // Fills a table from row 0 and shows it, without steps to undo.
    void Archivo(std::initializer_list<std::string_view> filas);
    void Transaccion(std::initializer_list<std::string_view> filas);
    void PonerArchivo(int fila, std::string_view celdas);
    void PonerTransaccion(int fila, std::string_view celdas);
    // Names F0, F1, ... in rows 0 to `ultima`; the same as fields of the program side.
    void LlenarArchivo(int ultima);
    void LlenarTransaccion(int ultima);

    // The rows up to the last one that isn't empty.
    std::vector<std::string> FilasArchivo() const;
    std::vector<std::string> FilasTransaccion() const;
    std::string FilaArchivo(int fila) const;
    std::string FilaTransaccion(int fila) const;

    // A user who goes to a cell and types: what is there is selected, so the first key replaces it.
    void Escribir(LugarDeCelda lugar, std::string_view texto);

    const std::string& Texto(LugarDeCelda lugar) const;
    Color ColorDe(LugarDeCelda lugar) const;
    // The cell with the focus, as the view knows it.
    std::string Foco() const;
};

}  // namespace qor::pruebas
