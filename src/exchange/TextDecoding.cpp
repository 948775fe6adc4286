#include "exchange/TextDecoding.h"

#include "records/Cp1252.h"

#include <QStringDecoder>

namespace TextDecoding {

namespace {

int lineOf(const QByteArray &bytes, qsizetype at)
{
    return int(bytes.left(at).count('\n')) + 1;
}

} // namespace

QString problemWith(const QByteArray &bytes)
{
    if (bytes.trimmed().isEmpty())
        return QStringLiteral("The file is empty.");
    if (bytes.startsWith("\xff\xfe") || bytes.startsWith("\xfe\xff"))
        return QStringLiteral("The file is in UTF-16, an encoding Quillmere does not read. Save "
                              "it as UTF-8 or Windows-1252 and try again.");
    if (const qsizetype nul = bytes.indexOf('\0'); nul >= 0)
        return QStringLiteral("Line %1 holds a NUL byte: this is not a text file.")
            .arg(lineOf(bytes, nul));
    qsizetype start = 0;
    while (start < bytes.size()) {
        qsizetype end = bytes.indexOf('\n', start);
        if (end < 0)
            end = bytes.size();
        if (end - start > MaxLineLength)
            return QStringLiteral("Line %1 is %2 characters long: no bank writes lines that "
                                  "long, so this is not a statement file.")
                .arg(lineOf(bytes, start))
                .arg(end - start);
        start = end + 1;
    }
    return QString();
}

Lines decode(const QByteArray &raw)
{
    Lines out;
    out.error = problemWith(raw);
    if (!out.error.isEmpty())
        return out;
    QByteArray bytes = raw;
    if (bytes.startsWith("\xef\xbb\xbf"))
        bytes.remove(0, 3);
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8.decode(bytes);
    if (utf8.hasError()) {
        text = Cp1252::decode(bytes.constData(), int(bytes.size()));
        out.encoding = QStringLiteral("Windows-1252");
    } else {
        out.encoding = QStringLiteral("UTF-8");
    }
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    out.lines = text.split(QLatin1Char('\n'));
    while (!out.lines.isEmpty() && out.lines.last().trimmed().isEmpty())
        out.lines.removeLast();
    return out;
}

} // namespace TextDecoding
