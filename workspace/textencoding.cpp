// SPDX-License-Identifier: MIT
#include "workspace/textencoding.h"

#include <QCoreApplication>

#include <cstring>

// Decoders here accept only what their encoder gives back. Those of Qt differ between its versions
// in what they do with noncharacters, with stray surrogates and with marks inside a text.
namespace {

const int all = -1; // encoders return it when no character was left out

struct EncodingRow
{
    TextEncoding encoding;
    const char *name;
    QByteArray mark;
    bool (*decode)(const QByteArray &bytes, QString *text);
    int (*encode)(const QString &text, QByteArray *bytes);
};

bool isSurrogate(uint codePoint)
{
    return codePoint >= 0xD800 && codePoint <= 0xDFFF;
}

bool isCodePoint(uint value)
{
    return value <= 0x10FFFF && !isSurrogate(value);
}

// Moves behind the character. A surrogate without its partner is returned as it is.
uint takeCodePoint(const QString &text, int *index)
{
    const QChar unit = text.at((*index)++);
    if (!unit.isHighSurrogate() || *index == text.size() || !text.at(*index).isLowSurrogate())
        return unit.unicode();
    return QChar::surrogateToUcs4(unit, text.at((*index)++));
}

// `out` has room for two units.
ushort *putCodePoint(uint codePoint, ushort *out)
{
    if (codePoint < 0x10000) {
        *out++ = ushort(codePoint);
    } else {
        *out++ = QChar::highSurrogate(codePoint);
        *out++ = QChar::lowSurrogate(codePoint);
    }
    return out;
}

ushort *unitsOf(QString *text)
{
    return reinterpret_cast<ushort *>(text->data());
}

// Reads one character of two to four bytes; returns its length, or 0 when it is none.
int longUtf8(const uchar *bytes, qint64 available, uint *codePoint)
{
    const int length = bytes[0] >= 0xF0 ? 4 : bytes[0] >= 0xE0 ? 3 : 2;
    const uint shortest[] = {0x80, 0x800, 0x10000}; // what fewer bytes could have said is none
    if (bytes[0] < 0xC2 || bytes[0] > 0xF4 || length > available)
        return 0;
    *codePoint = bytes[0] & (0xFFu >> (length + 1));
    for (int i = 1; i < length; ++i) {
        if ((bytes[i] & 0xC0) != 0x80)
            return 0;
        *codePoint = *codePoint << 6 | (bytes[i] & 0x3F);
    }
    return *codePoint >= shortest[length - 2] && isCodePoint(*codePoint) ? length : 0;
}

// Copies whole words of ASCII, up to the first that is none; returns their length.
qint64 copyAscii(const uchar *bytes, qint64 available, ushort *out)
{
    const int word = sizeof(quint64);
    const quint64 highBits = Q_UINT64_C(0x8080808080808080);
    qint64 done = 0;
    for (; available - done >= word; done += word) {
        quint64 bits;
        uchar characters[word]; // which nothing else can be, so that they are copied all at once
        std::memcpy(&bits, bytes + done, word);
        if (bits & highBits)
            break;
        std::memcpy(characters, &bits, word);
        for (int i = 0; i < word; ++i)
            out[done + i] = characters[i];
    }
    return done;
}

bool decodeUtf8(const QByteArray &bytes, QString *text)
{
    text->resize(bytes.size());
    ushort *out = unitsOf(text);
    const uchar *at = reinterpret_cast<const uchar *>(bytes.constData());
    const uchar *end = at + bytes.size();
    while (at != end) {
        if (*at < 0x80) {
            const qint64 copied = copyAscii(at, end - at, out);
            at += copied;
            out += copied;
            while (at != end && *at < 0x80)
                *out++ = *at++;
            continue;
        }
        uint codePoint = 0;
        const int length = longUtf8(at, end - at, &codePoint);
        if (length == 0)
            return false;
        at += length;
        out = putCodePoint(codePoint, out);
    }
    text->truncate(int(out - unitsOf(text)));
    return true;
}

char *putUtf8(uint codePoint, char *out)
{
    if (codePoint < 0x80) {
        *out++ = char(codePoint);
        return out;
    }
    const int following = codePoint < 0x800 ? 1 : codePoint < 0x10000 ? 2 : 3;
    *out++ = char((0xFF00u >> (following + 1)) | (codePoint >> (6 * following)));
    for (int i = following - 1; i >= 0; --i)
        *out++ = char(0x80 | ((codePoint >> (6 * i)) & 0x3F));
    return out;
}

int encodeUtf8(const QString &text, QByteArray *bytes)
{
    const int mostBytes = 3; // of one unit; a pair has four
    bytes->resize(int(text.size()) * mostBytes);
    char *out = bytes->data();
    for (int i = 0; i < text.size();) {
        const int start = i;
        const uint codePoint = takeCodePoint(text, &i);
        if (isSurrogate(codePoint))
            return start;
        out = putUtf8(codePoint, out);
    }
    bytes->truncate(int(out - bytes->constData()));
    return all;
}

template <int size, bool bigEndian>
uint unitAt(const uchar *bytes)
{
    uint unit = 0;
    for (int i = 0; i < size; ++i)
        unit |= uint(bytes[i]) << (8 * (bigEndian ? size - 1 - i : i));
    return unit;
}

template <int size, bool bigEndian>
void appendUnit(uint unit, QByteArray *bytes)
{
    for (int i = 0; i < size; ++i)
        bytes->append(char(unit >> (8 * (bigEndian ? size - 1 - i : i))));
}

// Stray surrogates are kept: two bytes can say them.
template <bool bigEndian>
bool decodeUtf16(const QByteArray &bytes, QString *text)
{
    if (bytes.size() % 2 != 0)
        return false;
    text->resize(bytes.size() / 2);
    const uchar *at = reinterpret_cast<const uchar *>(bytes.constData());
    for (int i = 0; i < text->size(); ++i)
        (*text)[i] = QChar(ushort(unitAt<2, bigEndian>(at + 2 * i)));
    return true;
}

template <bool bigEndian>
int encodeUtf16(const QString &text, QByteArray *bytes)
{
    bytes->reserve(2 * int(text.size()));
    for (QChar unit : text)
        appendUnit<2, bigEndian>(unit.unicode(), bytes);
    return all;
}

template <bool bigEndian>
bool decodeUtf32(const QByteArray &bytes, QString *text)
{
    if (bytes.size() % 4 != 0)
        return false;
    text->resize(bytes.size() / 2);
    ushort *out = unitsOf(text);
    const uchar *at = reinterpret_cast<const uchar *>(bytes.constData());
    for (const uchar *end = at + bytes.size(); at != end; at += 4) {
        const uint codePoint = unitAt<4, bigEndian>(at);
        if (!isCodePoint(codePoint))
            return false;
        out = putCodePoint(codePoint, out);
    }
    text->truncate(int(out - unitsOf(text)));
    return true;
}

template <bool bigEndian>
int encodeUtf32(const QString &text, QByteArray *bytes)
{
    bytes->reserve(4 * int(text.size()));
    for (int i = 0; i < text.size();) {
        const int start = i;
        const uint codePoint = takeCodePoint(text, &i);
        if (isSurrogate(codePoint))
            return start;
        appendUnit<4, bigEndian>(codePoint, bytes);
    }
    return all;
}

bool decodeLocale(const QByteArray &bytes, QString *text)
{
    *text = QString::fromLocal8Bit(bytes.constData(), int(bytes.size()));
    return text->toLocal8Bit() == bytes;
}

// Of what it does not have, a locale's encoding makes something else, which reads differently.
int encodeLocale(const QString &text, QByteArray *bytes)
{
    *bytes = text.toLocal8Bit();
    const QString again = QString::fromLocal8Bit(bytes->constData(), int(bytes->size()));
    if (again == text)
        return all;
    int same = 0;
    while (same < text.size() - 1 && same < again.size() && text.at(same) == again.at(same))
        ++same;
    return same;
}

bool decodeLatin1(const QByteArray &bytes, QString *text)
{
    *text = QString::fromLatin1(bytes.constData(), int(bytes.size()));
    return true;
}

int encodeLatin1(const QString &text, QByteArray *bytes)
{
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i).unicode() > 0xFF)
            return i;
    }
    *bytes = text.toLatin1();
    return all;
}

// In the order in which they are tried. The mark of little-endian UTF-32 begins with that of
// UTF-16.
const EncodingRow encodingRows[] = {
    {TextEncoding::MarkedUtf8, "UTF-8", QByteArray("\xEF\xBB\xBF"), decodeUtf8, encodeUtf8},
    {TextEncoding::Utf32LittleEndian, "UTF-32", QByteArray("\xFF\xFE\0\0", 4), decodeUtf32<false>,
     encodeUtf32<false>},
    {TextEncoding::Utf32BigEndian, "UTF-32", QByteArray("\0\0\xFE\xFF", 4), decodeUtf32<true>,
     encodeUtf32<true>},
    {TextEncoding::Utf16LittleEndian, "UTF-16", QByteArray("\xFF\xFE"), decodeUtf16<false>,
     encodeUtf16<false>},
    {TextEncoding::Utf16BigEndian, "UTF-16", QByteArray("\xFE\xFF"), decodeUtf16<true>,
     encodeUtf16<true>},
    {TextEncoding::Utf8, "UTF-8", QByteArray(), decodeUtf8, encodeUtf8},
    {TextEncoding::Locale, QT_TRANSLATE_NOOP("TextEncoding", "the system's encoding"), QByteArray(),
     decodeLocale, encodeLocale},
    {TextEncoding::Latin1, "ISO 8859-1", QByteArray(), decodeLatin1, encodeLatin1},
};

const EncodingRow &rowOf(TextEncoding encoding)
{
    return encodingRows[int(encoding)];
}

} // namespace

TextEncoding decodeText(const QByteArray &bytes, QString *text)
{
    for (const EncodingRow &row : encodingRows) {
        if (bytes.startsWith(row.mark) && row.decode(bytes.mid(row.mark.size()), text))
            return row.encoding;
    }
    return TextEncoding::Latin1;
}

int encodeText(const QString &text, TextEncoding encoding, QByteArray *bytes)
{
    const EncodingRow &row = rowOf(encoding);
    QByteArray body;
    const int missing = row.encode(text, &body);
    *bytes = row.mark + body;
    return missing;
}

bool isUnicode(TextEncoding encoding)
{
    return encoding != TextEncoding::Locale && encoding != TextEncoding::Latin1;
}

QString encodingName(TextEncoding encoding)
{
    return QCoreApplication::translate("TextEncoding", rowOf(encoding).name);
}
