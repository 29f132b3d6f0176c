#include "runtime/Text.h"

#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace netrove {

namespace {

/// A text with each of its characters replaced by `map`; a character whose replacement has another
/// length in UTF-16 stays.
QString Mapped(QStringView text, char32_t (*map)(char32_t)) {
    QString result = text.toString();
    for (qsizetype at = 0; at < result.size(); ++at) {
        const QChar unit = result[at];
        if (unit.isHighSurrogate() && at + 1 < result.size() && result[at + 1].isLowSurrogate()) {
            const char32_t image = map(QChar::surrogateToUcs4(unit, result[at + 1]));
            if (QChar::requiresSurrogates(image)) {
                result[at] = QChar(QChar::highSurrogate(image));
                result[at + 1] = QChar(QChar::lowSurrogate(image));
            }
            ++at;
        } else if (const char32_t image = map(unit.unicode()); !QChar::requiresSurrogates(image)) {
            result[at] = QChar(static_cast<char16_t>(image));
        }
    }
    return result;
}

char32_t FoldedCharacter(char32_t character) {
    return QChar::toCaseFolded(character);
}
char32_t UpperCharacter(char32_t character) {
    return QChar::toUpper(character);
}

/// The order of the locale that is set now. As making a collator is dear, each thread keeps one.
const QCollator& LocaleOrder() {
    thread_local QLocale locale;
    thread_local QCollator collator{locale.collation()};
    if (locale != QLocale()) {
        locale = QLocale();
        collator.setLocale(locale.collation());
    }
    return collator;
}

bool IsDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

/// The value of a hexadecimal digit; for any other character a greater value.
int DigitValue(QChar character) {
    if (IsDigit(character))
        return character.unicode() - u'0';
    const char16_t letter = character.toUpper().unicode();
    return letter >= u'A' && letter <= u'F' ? letter - u'A' + 10 : 16;
}

/// Reads a number from the beginning of a text.
class NumberScanner {
public:
    explicit NumberScanner(QStringView text) : text_(text) {}

    double Scan() {
        if (TakePrefix(u'H'))
            return TakeRadixDigits(16);
        if (TakePrefix(u'O'))
            return TakeRadixDigits(8);
        return TakeDecimal();
    }

    /// Whether a number stood there and nothing behind it.
    [[nodiscard]] bool TookAll() const { return found_ && at_ == text_.size(); }

private:
    [[nodiscard]] QChar At(qsizetype offset = 0) const {
        return at_ + offset < text_.size() ? text_[at_ + offset] : QChar();
    }

    bool TakePrefix(char16_t letter) {
        if (At() != u'&' || At(1).toUpper() != letter)
            return false;
        at_ += 2;
        return true;
    }

    double TakeRadixDigits(int radix) {
        double value = 0;
        for (int digit = DigitValue(At()); digit < radix; digit = DigitValue(At())) {
            value = value * radix + digit;
            found_ = true;
            ++at_;
        }
        return Checked(value);
    }

    double TakeDecimal() {
        QByteArray number;
        if (At() == u'-' || At() == u'+')
            number += TakeOne();
        TakeDigits(number);
        if (At() == u'.') {
            number += TakeOne();
            TakeDigits(number);
        }
        if (!found_)
            return 0;
        TakeExponent(number);
        // If the number is too big for a double, this gives infinity, where QByteArray gives 0.
        return Checked(QLocale::c().toDouble(QString::fromLatin1(number)));
    }

    /// An exponent counts only with a digit: "1E" and "1E+" are 1.
    void TakeExponent(QByteArray& number) {
        const QChar letter = At().toUpper();
        if (letter != u'E' && letter != u'D')
            return;
        const qsizetype sign = At(1) == u'-' || At(1) == u'+' ? 1 : 0;
        if (!IsDigit(At(1 + sign)))
            return;
        ++at_;
        number += 'e';
        if (sign > 0)
            number += TakeOne();
        TakeDigits(number);
    }

    void TakeDigits(QByteArray& number) {
        while (IsDigit(At())) {
            number += TakeOne();
            found_ = true;
        }
    }

    char TakeOne() { return text_[at_++].toLatin1(); }

    static double Checked(double value) {
        if (std::isinf(value))
            throw RunTimeError(ErrorNumber::Overflow);
        return value;
    }

    QStringView text_;
    qsizetype at_ = 0;
    bool found_ = false;
};

template <typename Whole>
Whole Rounded(double number) {
    const double rounded = std::nearbyint(number);
    if (rounded < std::numeric_limits<Whole>::min() || rounded > std::numeric_limits<Whole>::max())
        throw RunTimeError(ErrorNumber::Overflow);
    return static_cast<Whole>(rounded);
}

/// The number that a text is, which may hold nothing else.
double NumberOf(QStringView text) {
    NumberScanner scanner(text);
    const double value = scanner.Scan();
    if (!scanner.TookAll())
        throw RunTimeError(ErrorNumber::TypeMismatch);
    return value;
}

} // namespace

int CompareText(QStringView left, QStringView right) {
    if (EqualText(left, right))
        return 0;
    const QString foldedLeft = Mapped(left, FoldedCharacter);
    const QString foldedRight = Mapped(right, FoldedCharacter);
    if (const int order = LocaleOrder().compare(foldedLeft, foldedRight); order != 0)
        return order;
    // Locales ignore some characters and see composed and decomposed accents as one.
    return foldedLeft.compare(foldedRight);
}

bool EqualText(QStringView left, QStringView right) {
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

TextSortKey::TextSortKey(QStringView text)
    : folded_(Mapped(text, FoldedCharacter)), order_(LocaleOrder().sortKey(folded_)) {}

int TextSortKey::Compare(const TextSortKey& other) const {
    if (const int order = order_.compare(other.order_); order != 0)
        return order;
    return folded_.compare(other.folded_);
}

QString UpperCase(QStringView text) {
    return Mapped(text, UpperCharacter);
}

QString Trim(QStringView text) {
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text.toString();
}

QString CutAtZero(QStringView text) {
    const qsizetype zero = text.indexOf(QChar(u'\0'));
    return (zero < 0 ? text : text.first(zero)).toString();
}

double LeadingNumber(QStringView text) {
    QString solid = text.toString();
    solid.removeIf([](QChar unit) { return unit == u' ' || unit == u'\t' || unit == u'\n'; });
    return NumberScanner(solid).Scan();
}

bool IsNumeric(QStringView text) {
    const QString number = Trim(text);
    NumberScanner scanner(number);
    try {
        (void)scanner.Scan();
    } catch (const RunTimeError&) {
        return false;
    }
    return scanner.TookAll();
}

qint16 LeadingInteger(QStringView text) {
    return Rounded<qint16>(LeadingNumber(text));
}
qint32 LeadingLong(QStringView text) {
    return Rounded<qint32>(LeadingNumber(text));
}

float LeadingSingle(QStringView text) {
    const double number = LeadingNumber(text);
    if (std::abs(number) > static_cast<double>(std::numeric_limits<float>::max()))
        throw RunTimeError(ErrorNumber::Overflow);
    return static_cast<float>(number);
}

QString SingleText(float value) {
    std::array<char, 128> text{};
    const char* end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed).ptr;
    return QString::fromLatin1(text.data(), end - text.data());
}

qint16 ToInteger(QStringView text) {
    return Rounded<qint16>(NumberOf(text.trimmed()));
}

bool ToBoolean(QStringView text) {
    const QString word = Trim(text);
    if (EqualText(word, u"True"))
        return true;
    if (EqualText(word, u"False"))
        return false;
    return NumberOf(word) != 0;
}

QString BooleanWord(bool value) {
    return value ? u"True"_s : u"False"_s;
}

} // namespace netrove
