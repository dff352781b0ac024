#pragma once

#include <QSyntaxHighlighter>

namespace qor {

// Quiet colours for ABAP: comments, literals, and references to file fields. They follow the palette, light or dark.
class ColoresABAP : public QSyntaxHighlighter {
    Q_OBJECT
public:
    explicit ColoresABAP(QTextDocument* documento);

protected:
    void highlightBlock(const QString& texto) override;
};

}  // namespace qor
