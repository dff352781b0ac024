#include "base/qt/abap_highlighter.h"

#include <QRegularExpression>

#include "base/qt/colours.h"

namespace qor {

ColoresABAP::ColoresABAP(QTextDocument* documento) : QSyntaxHighlighter(documento) {}

void ColoresABAP::highlightBlock(const QString& texto) {
    if (texto.startsWith('*')) {
        setFormat(0, static_cast<int>(texto.size()), ColorLegible(Tono::Comentario));
        return;
    }
    static const QRegularExpression piezas(QStringLiteral("'[^']*'|\"[^\n]*|#[A-Za-z0-9_]+"));
    for (auto hallazgos = piezas.globalMatch(texto); hallazgos.hasNext();) {
        const auto hallazgo = hallazgos.next();
        const QChar primero = hallazgo.captured().at(0);
        const Tono tono = primero == '\'' ? Tono::Literal : primero == '#' ? Tono::Referencia : Tono::Comentario;
        setFormat(static_cast<int>(hallazgo.capturedStart()), static_cast<int>(hallazgo.capturedLength()), ColorLegible(tono));
    }
}

}  // namespace qor
