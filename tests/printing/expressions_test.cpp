#include "printing/expressions/culture.hpp"
#include "printing/expressions/expression.hpp"
#include "support/tables.hpp"

#include "core/text.hpp"

#include <cmath>

namespace tolvex::printing {
namespace {

using testing::error_number;
using testing::expect_all;

Variant amount(double units) { return Currency(units); }

// An invoice's line, two parameters and a page, as a layout's expressions meet them.
class InvoiceLine : public Environment
{
public:
    Variant field(TextView name) const override
    {
        const std::pair<TextView, Variant> fields[] = {{u"Producto", u"Café de altura"},
                                                       {u"Cantidad", 5},
                                                       {u"Precio", amount(1234.5)},
                                                       {u"Tasa", 0.16},
                                                       {u"Cero", 0},
                                                       {u"Fecha", Date::of(2010, 10, 22, 15, 5, 9)},
                                                       {u"Dia", Date::of(2010, 10, 2)},
                                                       {u"Nulo", {}},
                                                       {u"Activo", true},
                                                       {u"Logo", Bytes{"png"}},
                                                       {u"Folio", u"00017"}};
        for (const auto& [known, value] : fields)
            if (equal_ignoring_case(known, name)) return value;
        throw Error(5, u"Campo desconocido: " + Text(name));
    }
    bool has_field(TextView name) const override { return name != u"Ausente"; }
    Variant parameter(TextView name) const override
    {
        if (name == u"Meses") return Variant::List{u"enero", u"marzo"};
        return name == u"Columna" ? u"Producto" : u"7";
    }
    Variant parameter_label(TextView) const override { return u"etiqueta"; }
    Variant global(TextView name) const override { return u"<" + Text(name) + u">"; }
    Variant report_item(TextView name) const override { return u"(" + Text(name) + u")"; }
    Variant variable(TextView) const override { return 42; }
    Variant own_value() const override { return amount(-3); }
    // The calls themselves, for their arguments to be seen.
    Variant aggregate(const AggregateCall& call) const override
    {
        const Text running = call.function == AggregateFunction::running_value
                                 ? u"/" + to_text(std::to_string(static_cast<int>(call.running)))
                                 : u"";
        return to_text(std::to_string(static_cast<int>(call.function))) + running + u"[" +
               call.argument.source() + u"|" + call.scope.value_or(u"-") + u"]";
    }
    Variant lookup(const LookupCall& call) const override
    {
        return call.source.evaluate(*this).text() + u"|" + call.destination.source() + u"|" +
               call.result.source() + u"|" + call.data_set + (call.every_match ? u"|*" : u"");
    }
    bool in_scope(TextView scope) const override { return scope == u"Detalle"; }
    std::int64_t level(std::optional<Text> scope) const override { return scope ? 2 : 1; }
    const Culture& culture() const override { return printing::culture(language); }
    Date now() const override { return Date::of(2010, 10, 22, 15, 5, 9); }

    Text language = u"es-MX";
};

// What a text box would show; the reason where it would show "#Error".
Text shown(const Text& source, const Text& language = u"es-MX")
{
    InvoiceLine line;
    line.language = language;
    try {
        return formatted(Expression::of(source).evaluate(line), {}, line.culture());
    } catch (const Error& error) {
        return u"#" + error.description();
    }
}

using Cases = std::initializer_list<std::pair<Text, Text>>;

void expect_shown(Cases cases)
{
    expect_all<Text, Text>([](const Text& source) { return shown(u"=" + source); }, cases);
}

TEST(Expressions, are_texts_unless_they_begin_with_an_equals_sign)
{
    EXPECT_EQ(shown(u"Total: 5"), u"Total: 5");
    EXPECT_EQ(shown(u" \r\n= 1 + 1"), u"2");
    EXPECT_TRUE(Expression::of(u"Black").is_literal());
    EXPECT_FALSE(Expression::of(u"=1").is_literal());
    EXPECT_FALSE(Expression::of(u"=1 +").is_literal());
    EXPECT_TRUE(Expression().is_empty());
}

TEST(Expressions, read_what_a_report_knows)
{
    expect_shown(
        {{u"Fields!Producto.Value", u"Café de altura"},
         {u"fields!PRODUCTO.value", u"Café de altura"},
         {u"Fields(\"Cantidad\").Value + Fields.Item(\"Cantidad\").Value", u"10"},
         {u"Fields(Parameters!Columna.Value).Value", u"Café de altura"},
         {u"Fields!Ausente.IsMissing & Fields!Producto.IsMissing", u"TrueFalse"},
         {u"Fields!Folio.Length", u"5"},
         {u"Parameters!Meses.Value(1) & Parameters!Meses.Count", u"marzo2"},
         {u"Parameters!Meses.IsMultiValue & Parameters!Otro.IsMultiValue", u"TrueFalse"},
         {u"Parameters!Otro.Label & Parameters(\"Otro\").Value", u"etiqueta7"},
         {u"Globals!pagenumber & \"/\" & Globals.TotalPages", u"<PageNumber>/<TotalPages>"},
         {u"Globals!RenderFormat.Name & User!Language", u"<RenderFormat.Name><Language>"},
         {u"Globals(\"ReportName\") & Globals!OverallTotalPages", u"<ReportName><OverallTotalPages>"},
         {u"ReportItems!Total.Value & ReportItems(\"Iva\").Value", u"(Total)(Iva)"},
         {u"Variables!Tope.Value + Me.Value", u"39"}});
}

TEST(Expressions, hand_aggregates_and_lookups_to_the_report)
{
    const auto number = [](AggregateFunction function) {
        return to_text(std::to_string(static_cast<int>(function)));
    };
    using enum AggregateFunction;
    expect_shown(
        {{u"Sum(Fields!Precio.Value * 2, \"Grupo\")", number(sum) + u"[Fields!Precio.Value * 2|Grupo]"},
         {u"First(Fields!A.Value)", number(first) + u"[Fields!A.Value|-]"},
         {u"StDevP(Fields!A.Value, Nothing)", number(st_dev_p) + u"[Fields!A.Value|-]"},
         {u"RunningValue(Fields!A.Value, CountDistinct, \"G\")",
          number(running_value) + u"/" + number(count_distinct) + u"[Fields!A.Value|G]"},
         {u"RowNumber(Nothing)", number(row_number) + u"[|-]"},
         {u"CountRows() & CountRows(\"Datos\")",
          number(count_rows) + u"[|-]" + number(count_rows) + u"[|Datos]"},
         {u"Lookup(Fields!Cantidad.Value, Fields!Id.Value, Fields!Nombre.Value, \"Clientes\")",
          u"5|Fields!Id.Value|Fields!Nombre.Value|Clientes"},
         {u"LookupSet(1, Fields!Id.Value, Fields!Nombre.Value, \"Clientes\")",
          u"1|Fields!Id.Value|Fields!Nombre.Value|Clientes|*"},
         {u"InScope(\"Detalle\") & Level() & Level(\"Grupo\")", u"True12"}});
}

TEST(Expressions, tell_what_they_mention)
{
    const auto expression =
        Expression::of(u"=IIf(Fields!A.Value > Sum(Fields!B.Value, \"G\"), Parameters!P.Value, "
                       u"-Variables!V.Value & ReportItems!R.Value & Globals!PageNumber)");
    Text mentioned;
    expression.for_each_mention([&](Expression::Mention kind, const Text& name) {
        mentioned += to_text(std::to_string(static_cast<int>(kind))) + name + u" ";
    });
    EXPECT_EQ(mentioned, u"0A 0B 5G 1P 4V 3R 2PageNumber ");
}

TEST(Operators, bind_as_in_visual_basic)
{
    expect_shown({{u"1 + 2 * 3", u"7"},
                  {u"-2 ^ 2", u"-4"},
                  {u"2 ^ -1", u"0.5"},
                  {u"2 ^ 3 ^ 2", u"64"},
                  {u"-7 \\ 2 & \" \" & -7 Mod 3 & \" \" & 7.5 Mod 2", u"-3 -1 1.5"},
                  {u"100 / 10 / 2 * 3", u"15"},
                  {u"12 \\ 5 Mod 3", u"2"},
                  {u"1 & 2 + 3", u"15"},
                  {u"Not 1 = 2 And 1 < 2", u"True"},
                  {u"True Or False And False", u"True"},
                  {u"True Xor True Or True", u"False"},
                  {u"(6 And 3) & (6 Or 3) & (6 Xor 3)", u"275"},
                  {u"Not 0", u"-1"},
                  {u"1 = 1 AndAlso Not IsNothing(5)", u"True"},
                  {u"Not Fields!Nulo.Value Is Nothing", u"False"},
                  {u"Fields!Logo.Value IsNot Nothing", u"True"},
                  {u"1 + _\r\n 2 ' y nada más", u"3"},
                  {u"(1)", u"1"}});
}

TEST(Operators, take_values_as_visual_basic_does)
{
    expect_shown(
        {{u"\"5\" * 2", u"10"},
         {u"\"5\" + 2", u"7"},
         {u"\"5\" + \"2\"", u"52"},
         {u"\"$1,200.50\" * 2", u"2401"},
         {u"Fields!Nulo.Value + 5", u"5"},
         {u"Fields!Nulo.Value & \"x\" + Nothing", u"x"},
         {u"Nothing = 0 And Nothing = \"\" And Not Nothing", u"True"},
         {u"True + 1", u"0"},
         {u"10 / 4", u"2.5"},
         {u"\"a\" = \"A\"", u"False"},
         {u"\"10\" = 10 And \"a\" < \"b\"", u"True"},
         {u"\"true\" = True", u"True"},
         {u"False < 1 And True < False", u"True"},
         {u"Fields!Dia.Value < Fields!Fecha.Value And Nothing < Fields!Dia.Value", u"True"},
         {u"Fields!Dia.Value = \"02/10/2010\"", u"True"},
         {u"Fields!Dia.Value + 30 & \" \" & Fields!Dia.Value - 1", u"01/11/2010 01/10/2010"},
         {u"(Fields!Fecha.Value - Fields!Dia.Value).Days & \"d \" & (#10/3/2010# - Now).Hours", u"20d -15"},
         {u"\"Hoy: \" & Fields!Fecha.Value", u"Hoy: 22/10/2010 03:05:09 p. m."}});
}

TEST(Operators, keep_amounts_and_whole_numbers_exact)
{
    expect_shown({{u"Fields!Precio.Value * 3 - 0.5D", u"3703"},
                  {u"922337203685477.5807D - 0.0001D", u"922337203685477.5806"},
                  {u"9007199254740993 + 0", u"9007199254740993"},
                  {u"9223372036854775807 - 1", u"9223372036854775806"},
                  {u"9007199254740993 = 9007199254740992", u"False"},
                  {u"1 / 3", u"0.333333333333333"},
                  {u"0.1 + 0.2", u"0.3"},
                  {u"CDec(\"0.123456\")", u"0.123456"}});
    EXPECT_EQ(Expression::of(u"=Fields!Precio.Value * 3 + 1").evaluate(InvoiceLine()), amount(3704.5));
    EXPECT_EQ(Expression::of(u"=Fields!Precio.Value * Fields!Precio.Value").evaluate(InvoiceLine()),
              Variant(1234.5 * 1234.5));
}

TEST(Operators, match_patterns)
{
    expect_shown({{u"\"factura 15\" Like \"fact*##\"", u"True"},
                  {u"\"B7\" Like \"[A-C]#\" And \"D7\" Like \"[!A-C]?\"", u"True"},
                  {u"\"\" Like \"*\" And Not \"\" Like \"?\"", u"True"},
                  {u"\"a*b\" Like \"a[*]b\" And Not \"axb\" Like \"a[*]b\"", u"True"},
                  {u"StrDup(5000, \"a\") Like \"*a*a*a*a*b\"", u"False"}});
}

TEST(Branches, evaluate_only_what_they_choose)
{
    expect_shown({{u"IIf(Fields!Cero.Value = 0, 0, 1 / Fields!Cero.Value)", u"0"},
                  {u"IIf(Fields!Cantidad.Value, \"sí\", 1 / 0)", u"sí"},
                  {u"Fields!Cero.Value <> 0 And 10 / Fields!Cero.Value > 1", u"False"},
                  {u"True Or 1 / 0", u"True"},
                  {u"Switch(False, 1 / 0, True, \"dos\", 1 / 0, 3)", u"dos"},
                  {u"Switch(False, 1) Is Nothing And Choose(3, 1, 2) Is Nothing", u"True"},
                  {u"Choose(2, 1 / 0, \"b\")", u"b"},
                  {u"If(Fields!Nulo.Value, \"nada\") & If(True, 1, 1 / 0)", u"nada1"}});
}

TEST(TextFunctions, work_as_documented)
{
    expect_shown(
        {{u"\"[\" & Trim(\"  a b \") & \"|\" & LTrim(\" a \") & \"|\" & RTrim(\" a \") & \"]\"",
          u"[a b|a | a]"},
         {u"UCase(\"ñandú\") & LCase(\"ÁRBOL\")", u"ÑANDÚárbol"},
         {u"Left(\"abc\", 2) & Right(\"abc\", 2) & Mid(\"abcdef\", 3, 2) & Mid(\"abc\", 9)", u"abbccd"},
         {u"Right(Fields!Folio.Value, 99) & Len(Fields!Folio.Value) & Len(Nothing)", u"0001750"},
         {u"Replace(\"a-b-c\", \"-\", \"\") & Replace(\"aXbx\", \"x\", \"\", 1, 1, CompareMethod.Text)",
          u"abcabx"},
         {u"InStr(\"abcabc\", \"c\") & InStr(4, \"abcabc\", \"c\") & InStr(\"abc\", \"z\") & "
          u"InStr(\"aBc\", \"b\", CompareMethod.Text)",
          u"3602"},
         {u"InStrRev(\"abcabc\", \"b\") & InStrRev(\"abcabc\", \"b\", 4)", u"52"},
         {u"StrConv(\"JUAN DE LA O\", VbStrConv.ProperCase) & StrReverse(\"abc\")", u"Juan De La Ocba"},
         {u"StrComp(\"a\", \"B\") & StrComp(\"a\", \"A\", vbTextCompare)", u"10"},
         {u"Split(\"a,b,c\", \",\")(1) & Split(\"a b\").Length & Split(\"a,b,c\", \",\", 2)(1)", u"b2b,c"},
         {u"Join(Parameters!Meses.Value, \", \") & Join(Parameters!Otro.Value)", u"enero, marzo7"},
         {u"Join(Filter(Split(\"uno dos tres\"), \"s\"), \"-\") & Filter({\"a\", \"b\"}, \"a\", False)(0)",
          u"dos-tresb"},
         {u"Chr(65) & Chr(128) & ChrW(241) & Asc(\"€\") & AscW(\"€\")", u"A€ñ1288364"},
         {u"\"[\" & Space(2) & StrDup(3, \"xy\") & LSet(\"ab\", 3) & RSet(\"abc\", 2) & \"]\"",
          u"[  xxxab ab]"},
         {u"Hex(255) & \" \" & Hex(-1) & \" \" & Oct(8) & \" \" & &HFF", u"FF FFFFFFFF 10 255"},
         {u"String.Format(\"{0:N1} de {1,4}|{1,-4}|{{}}\", 1234.56, \"ab\")", u"1,234.6 de   ab|ab  |{}"},
         {u"String.IsNullOrEmpty(Nothing) & String.Concat(1, \"a\") & String.Join(\"/\", 1, 2)",
          u"True1a1/2"},
         {u"\"dijo \"\"sí\"\"\" & \"a\"c & vbTab & ControlChars.Tab & Environment.NewLine",
          u"dijo \"sí\"a\t\t\r\n"}});
}

TEST(Members, of_texts_and_lists)
{
    expect_shown(
        {{u"\" a \".Trim() & \"00170\".TrimStart(\"0\"c) & \"17..\".TrimEnd(\".\")", u"a17017"},
         {u"\"abcdef\".Substring(2) & \"abcdef\".Substring(1, 2)", u"cdefbc"},
         {u"\"a-b\".Replace(\"-\", \"+\").ToUpper().ToLower", u"a+b"},
         {u"\"a,b\".Split(\",\")(1) & \"a,b\".Split(\",\").Length & \"abc\"(1)", u"b2b"},
         {u"\"abc\".Contains(\"b\") & \"abc\".StartsWith(\"a\") & \"abc\".EndsWith(\"a\")", u"TrueTrueFalse"},
         {u"\"abcb\".IndexOf(\"b\") & \"abcb\".IndexOf(\"b\", 2) & \"abcb\".LastIndexOf(\"b\") & "
          u"\"a\".IndexOf(\"z\")",
          u"133-1"},
         {u"\"7\".PadLeft(3, \"0\") & \"7\".PadRight(3) & \".\"", u"0077  ."},
         {u"\"ac\".Insert(1, \"b\") & \"abc\".Remove(1) & \"abc\".Remove(0, 1)", u"abcabc"},
         {u"Parameters!Meses.Value.Count & Parameters!Meses.Value.GetValue(0)", u"2enero"},
         {u"Fields!Nulo.Value.ToString() & Fields!Activo.Value.ToString()", u"True"},
         {u"Fields!Precio.Value.ToString(\"C\") & (5).ToString(\"000\")", u"$1,234.50005"},
         {u"Fields!Precio.Value.ToString(\"C\", New System.Globalization.CultureInfo(\"de-DE\"))",
          u"1.234,50 €"}});
}

TEST(NumberFunctions, round_and_convert)
{
    expect_shown(
        {{u"Round(2.5) & Round(3.5) & \" \" & Round(2.665, 2) & \" \" & Round(-2.5)", u"24 2.66 -2"},
         {u"Math.Round(2.5, MidpointRounding.AwayFromZero) & \" \" & "
          u"System.Math.Round(2.665, 2, MidpointRounding.AwayFromZero)",
          u"3 2.67"},
         {u"Round(0.125D, 2) & \" \" & Round(5)", u"0.12 5"},
         {u"Int(-2.5) & Fix(-2.5) & Ceiling(2.1) & Math.Floor(-2.1) & Truncate(2.9D)", u"-3-23-32"},
         {u"Abs(-3) & Sign(-0.5) & Sqrt(16) & Exp(0) & Log10(1000) & Pow(2, 10)", u"3-14131024"},
         {u"Math.Max(1, 2.5) & Math.Min(\"3\", 2) & Format(Math.PI, \"0.00\")", u"2.523.14"},
         {u"CInt(2.5) & CLng(\"3.5\") & CShort(1) & CByte(255) & Convert.ToInt32(\"12\")", u"24125512"},
         {u"CDbl(\" 1,234.5 \") & \" \" & CSng(1.1) & \" \" & CDec(1.5) & \" \" & CType(\"5\", Integer)",
          u"1234.5 1.1 1.5 5"},
         {u"Val(\"12 pesos\") & Str(5) & CStr(1.5) & CBool(\"False\") & CBool(2)", u"12 51.5FalseTrue"},
         {u"IsNumeric(\"1e3\") & IsNumeric(\"x\") & IsNumeric(Nothing) & IsDate(\"31/12/2010\") & "
          u"IsDate(\"12/31/2010\") & IsArray(Parameters!Meses.Value)",
          u"TrueFalseFalseTrueFalseTrue"},
         {u"Rnd() >= 0 And Rnd < 1", u"True"}});
}

TEST(DateFunctions, reckon_with_the_calendar)
{
    expect_shown(
        {{u"Now & \"|\" & Today & \"|\" & TimeOfDay", u"22/10/2010 03:05:09 p. m.|22/10/2010|03:05:09 p. m."},
         {u"Year(Now) & Month(Now) & Day(Now) & Hour(Now) & Minute(Now) & Second(Now)", u"201010221559"},
         {u"Now.Year & Today.AddDays(-1).Day & Now.DayOfWeek & Now.Date & DateTime.Now.Month",
          u"201021522/10/201010"},
         {u"DateAdd(DateInterval.Month, 4, #10/31/2010#) & \" \" & DateAdd(\"yyyy\", -1, #2/29/2008#)",
          u"28/02/2011 28/02/2007"},
         {u"#10/31/2010#.AddMonths(-8).AddYears(1).AddHours(25).AddMinutes(-60)", u"01/03/2011"},
         {u"DateAdd(\"d\", -40000, #1/1/2000 6:00 PM#) & \" \" & DateAdd(\"q\", 1, #1/1/2010#)",
          u"26/06/1890 06:00:00 p. m. 01/04/2010"},
         {u"DateDiff(\"d\", Fields!Dia.Value, Now) & \" \" & DateDiff(DateInterval.Year, #12/31/2009#, #1/1/2010#)",
          u"20 1"},
         {u"DateDiff(\"m\", #1/31/2010#, #2/1/2010#) & DateDiff(\"h\", #1/1/2010#, #1/2/2010 1:59 AM#) & "
          u"DateDiff(\"ww\", #10/23/2010#, #10/24/2010#) & DateDiff(\"s\", Now, Now.AddSeconds(-5))",
          u"1251-5"},
         {u"DatePart(\"q\", Now) & DatePart(\"y\", #12/31/2008#) & DatePart(\"w\", Now)", u"43666"},
         {u"DatePart(\"ww\", #1/1/2011#) & \" \" & DatePart(\"ww\", #1/2/2011#)", u"1 2"},
         {u"DatePart(\"ww\", #1/1/2011#, FirstDayOfWeek.Monday, FirstWeekOfYear.FirstFourDays) & \" \" & "
          u"DatePart(\"ww\", #1/3/2011#, 2, 2) & \" \" & DatePart(\"ww\", #1/7/2011#, 2, 3)",
          u"52 1 1"},
         {u"DateSerial(2010, 13, 0) & \" \" & DateSerial(10, 1, 1) & \" \" & TimeSerial(25, 0, -1)",
          u"31/12/2010 01/01/2010 12:59:59 a. m."},
         {u"MonthName(10) & MonthName(1, True) & WeekdayName(Weekday(Now)) & WeekdayName(1, True, 2)",
          u"octubreeneviernes"
          u"lun"},
         {u"CDate(\"2010-10-22T10:30:15.25-05:00\") & \"|\" & CDate(\"22 de octubre de 2010\")",
          u"22/10/2010 10:30:15 a. m.|22/10/2010"},
         {u"CDate(\"22/10/10\") & \"|\" & CDate(\"10:30 p. m.\") & \"|\" & DateValue(Now) & \"|\" & TimeValue(Now)",
          u"22/10/2010|10:30:00 p. m.|22/10/2010|03:05:09 p. m."},
         {u"New Date(2010, 2, 1) & DateTime.DaysInMonth(2008, 2) & Date.IsLeapYear(1900)",
          u"01/02/201029False"},
         {u"Now.ToShortDateString() & \"|\" & Now.ToLongDateString()",
          u"22/10/2010|viernes, 22 de octubre de 2010"},
         {u"Now.Subtract(Fields!Dia.Value).TotalHours", u"495.085833333333"}});
    EXPECT_EQ(shown(u"=CDate(\"10/22/2010\")", u"en-US"), u"10/22/2010");
}

// A value in a format of a culture.
struct Formatting
{
    Variant value;
    Text format, expected, language = u"es-MX";
};

void expect_formatted(std::initializer_list<Formatting> cases)
{
    for (const auto& [value, format, expected, language] : cases)
        EXPECT_EQ(to_utf8(formatted(value, format, culture(language))), to_utf8(expected))
            << to_utf8(format + u" " + language);
}

TEST(NumberFormats, standard)
{
    expect_formatted({{1234567.891, u"N", u"1,234,567.89"},
                      {-1234.5, u"n0", u"-1,235"}, // a tie goes away from zero
                      {2.675, u"F2", u"2.68"},
                      {-0.001, u"N2", u"0.00"},
                      {amount(-1234.5), u"C", u"-$1,234.50"},
                      {0.1256, u"P1", u"12.6%"},
                      {42, u"D5", u"00042"},
                      {-7, u"D2", u"-07"},
                      {12345.678, u"E2", u"1.23E+004"},
                      {0.00012, u"e1", u"1.2e-004"},
                      {9.996, u"E2", u"1.00E+001"},
                      {1234.5678, u"G6", u"1234.57"},
                      {1234.5, u"G2", u"1.2E+03"},
                      {255, u"X", u"FF"},
                      {255, u"x4", u"00ff"},
                      {0.1, u"R", u"0.1"},
                      {1e15, u"", u"1E+15"},
                      {1e-5, u"", u"1E-05"},
                      {0.0001, u"", u"0.0001"},
                      {std::int64_t{1'234'567'890'123'456'789}, u"", u"1234567890123456789"},
                      {amount(1234.50), u"", u"1234.5"},
                      {1234.5, u"Standard", u"1,234.50"},
                      {u"texto", u"N2", u"texto"},
                      {true, u"", u"True"},
                      {{}, u"N2", u""}});
}

TEST(NumberFormats, custom)
{
    expect_formatted({{-1234.567, u"#,##0.00;(#,##0.00)", u"(1,234.57)"},
                      {0, u"#,##0.00;-#,##0.00;\"sin importe\"", u"sin importe"},
                      {0.001, u"0.00;-0.00;cero", u"cero"},
                      {-0.001, u"0.00;(0.00)", u"0.00"},
                      {-5, u"0.0", u"-5.0"},
                      {-5, u"0;;cero", u"-5"},
                      {0, u"#,###", u""},
                      {0.5, u"#.00", u".50"},
                      {12.3, u".00", u"12.30"},
                      {1234567, u"#,##0,", u"1,235"},
                      {1234567890, u"0,,.0\" M\"", u"1234.6 M"},
                      {1234567, u"0,0", u"1,234,567"},
                      {5551234567.0, u"(000) 000-0000", u"(555) 123-4567"},
                      {0.1234, u"0.0%", u"12.3%"},
                      {0.1234, u"0.0‰", u"123.4‰"},
                      {1234.5, u"0.00E+00", u"1.23E+03"},
                      {0.00012, u"##0.0E0", u"120.0E-6"},
                      {99.99, u"0.0E+0", u"1.0E+2"},
                      {5, u"\\#0 'u.' E", u"#5 u. E"},
                      {1.005, u"0.00", u"1.01"},
                      {7, u"Folio", u"Folio"}});
}

TEST(DateFormats, standard_and_custom)
{
    const Date afternoon = Date::of(2010, 10, 2, 15, 5, 9), midnight = Date::of(2010, 10, 2);
    expect_formatted({{afternoon, u"", u"02/10/2010 03:05:09 p. m."},
                      {midnight, u"", u"02/10/2010"},
                      {Date{0.5}, u"", u"12:00:00 p. m."},
                      {afternoon, u"d", u"02/10/2010"},
                      {afternoon, u"D", u"sábado, 2 de octubre de 2010"},
                      {afternoon, u"t", u"03:05 p. m."},
                      {afternoon, u"f", u"sábado, 2 de octubre de 2010 03:05 p. m."},
                      {midnight, u"G", u"02/10/2010 12:00:00 a. m."},
                      {afternoon, u"g", u"02/10/2010 03:05 p. m."},
                      {afternoon, u"M", u"2 de octubre"},
                      {afternoon, u"Y", u"octubre de 2010"},
                      {afternoon, u"s", u"2010-10-02T15:05:09"},
                      {afternoon, u"u", u"2010-10-02 15:05:09Z"},
                      {afternoon, u"R", u"Sat, 02 Oct 2010 15:05:09 GMT"},
                      {afternoon, u"dd/MMM/yyyy HH:mm:ss", u"02/oct/2010 15:05:09"},
                      {afternoon, u"ddd d 'de' MMMM 'del' yy", u"sáb 2 de octubre del 10"},
                      {afternoon, u"h:mm t", u"3:05 p"},
                      {Date{afternoon.days + 0.25 / 86'400}, u"ss.fff", u"09.250"},
                      {afternoon, u"%d", u"2"},
                      {afternoon, u"\\d\\i\\a dd", u"dia 02"},
                      {afternoon, u"Short Date", u"02/10/2010"},
                      {Date::of(1890, 6, 25, 18), u"yyyy-MM-dd HH:mm", u"1890-06-25 18:00"}});
}

TEST(Formats, follow_the_culture)
{
    const Date date = Date::of(2010, 10, 2, 15, 5);
    expect_formatted({{-1234.5, u"C", u"-1.234,50 €", u"es-ES"},
                      {-1234.5, u"C", u"($1,234.50)", u"en-US"},
                      {1234.5, u"C", u"£1,234.50", u"en-GB"},
                      {1234.5, u"C", u"1\u00A0234,50 €", u"fr-FR"},
                      {1234.5, u"C", u"R$ 1.234,50", u"pt-BR"},
                      {1234.5, u"C", u"S/ 1,234.50", u"es-PE"},
                      {1234.5, u"C", u"¤1,234.50", u"invariant"},
                      {1234567.5, u"#,##0.00", u"1.234.567,50", u"de-DE"},
                      {1.5, u"", u"1,5", u"it-IT"},
                      {0.16, u"P0", u"16 %", u"de-DE"},
                      {date, u"d", u"10/2/2010", u"en-US"},
                      {date, u"G", u"10/2/2010 3:05:00 PM", u"en-US"},
                      {date, u"D", u"Samstag, 2. Oktober 2010", u"de-DE"},
                      {date, u"D", u"samedi 2 octobre 2010", u"fr-FR"},
                      {date, u"dd/MM/yyyy", u"02.10.2010", u"de-DE"},
                      {date, u"dd/MM/yyyy", u"02-10-2010", u"es-CL"},
                      {date, u"MMMM", u"outubro", u"pt-PT"},
                      {date, u"s", u"2010-10-02T15:05:00", u"de-DE"}});
    const auto name_of = [](const Text& name) { return culture(name).name; };
    expect_all<Text, Text>(name_of, {{u"", u"es-MX"},
                                     {u"EN-us", u"en-US"},
                                     {u"es", u"es-MX"},
                                     {u"es-HN", u"es-MX"},
                                     {u"en-AU", u"en-US"},
                                     {u"de", u"de-DE"},
                                     {u"ja-JP", u"es-MX"}});
}

TEST(FormatFunctions, take_their_options)
{
    expect_shown(
        {{u"Format(1234.5, \"C\") & Format(Nothing, \"C\") & Format(5)", u"$1,234.505"},
         {u"FormatNumber(1234.5) & \" \" & FormatNumber(1234.5, 0) & \" \" & FormatNumber(0.5, 1, TriState.False)",
          u"1,234.50 1,235 .5"},
         {u"FormatNumber(-1234.5, , , TriState.True, TriState.False)", u"(1234.50)"},
         {u"FormatCurrency(-5) & FormatCurrency(1234.567, 1) & FormatPercent(0.1234, 1)",
          u"-$5.00$1,234.612.3%"},
         {u"FormatDateTime(Now, DateFormat.ShortDate) & \"|\" & FormatDateTime(Now, DateFormat.ShortTime)",
          u"22/10/2010|15:05"},
         {u"FormatDateTime(Now, vbLongDate) & FormatDateTime(Nothing)", u"viernes, 22 de octubre de 2010"}});
}

TEST(Faults, name_what_is_wrong_and_where)
{
    const auto fault = [](const Text& source) { return Expression::of(u"=" + source).fault(); };
    expect_all<Text, Text>(
        fault, {{u"Foo(1)", u"Función desconocida: Foo"},
                {u"1 + Foo", u"Nombre desconocido: Foo"},
                {u"Len(Foo)", u"Nombre desconocido: Foo"},
                {u"Sum(Foo)", u"Nombre desconocido: Foo"},
                {u"System.Math.Foo(1)", u"Función desconocida: Foo"},
                {u"Now.Foo()", u"Miembro desconocido: Foo"},
                {u"Fields!A.Foo", u"Propiedad desconocida: A.Foo"},
                {u"Globals!Foo", u"Nombre desconocido: Globals!Foo"},
                {u"Code.Letra(1)", u"El código propio (Code) no está soportado"},
                {u"New Foo(1)", u"New Foo no está soportado"},
                {u"Left(\"a\")", u"Faltan argumentos de Left"},
                {u"Left(\"a\", 1, 2)", u"Sobran argumentos de Left"},
                {u"Switch(True, 1, False)", u"Switch lleva una condición y un valor por cada caso"},
                {u"Sum(Fields!A.Value, Fields!B.Value)",
                 u"Se esperaba un texto entre comillas en lugar de Fields!B.Value"},
                {u"Sum(Fields!A.Value, \"G\", Recursive)",
                 u"Los agregados recursivos (Recursive) no están soportados"},
                {u"RunningValue(Fields!A.Value, Foo, Nothing)", u"RunningValue no conoce la función Foo"},
                {u"CType(1, Foo)", u"Tipo desconocido: Foo"},
                {u"", u"La expresión está incompleta"},
                {u"1 +", u"La expresión está incompleta"},
                {u"(1", u"Se esperaba «)» en la posición 4"},
                {u"1 2", u"No se esperaba «2» en la posición 4"},
                {u"1 ? 2", u"No se esperaba «?» en la posición 4"},
                {u"\"a", u"Falta cerrar un texto en la posición 4"},
                {u"#13/40/2010#", u"La fecha no es válida en la posición 2"},
                {u"Len(\"a\")", u""}});
    EXPECT_EQ(shown(u"=Foo(1)"), u"#Función desconocida: Foo");
}

TEST(Faults, come_with_an_error_number)
{
    const auto error = [](const Text& source) {
        return error_number([&] { Expression::of(u"=" + source).evaluate(InvoiceLine()).text(); });
    };
    expect_all<Text, std::int32_t>(error, {{u"1 / 0", 11},
                                           {u"1 \\ 0", 11},
                                           {u"1 Mod 0", 11},
                                           {u"9223372036854775807 + 1", 6},
                                           {u"-(-9223372036854775807 - 1)", 6},
                                           {u"(-9223372036854775807 - 1) \\ -1", 6},
                                           {u"9223372036854775807 * 2", 6},
                                           {u"922337203685477.5807D + 1", 6},
                                           {u"10 ^ 400", 6},
                                           {u"CInt(3000000000)", 6},
                                           {u"CLng(1e19)", 6},
                                           {u"CByte(-1)", 6},
                                           {u"Exp(1000)", 6},
                                           {u"Sqrt(-1)", 5},
                                           {u"\"Total: \" + 5", 13},
                                           {u"\"abc\" = 5", 13},
                                           {u"CDate(\"31/02/2010\")", 13},
                                           {u"CDate(\"25:00\")", 13},
                                           {u"Fields!Logo.Value", 13},
                                           {u"Parameters!Meses.Value", 13},
                                           {u"Year(Nothing)", 94},
                                           {u"#1/1/9999#.AddYears(1)", 6},
                                           {u"DateSerial(50000, 1, 1)", 6},
                                           {u"DateAdd(\"s\", 1e300, Now)", 6},
                                           {u"DateAdd(\"x\", 1, Now)", 5},
                                           {u"Space(2000000000)", 6},
                                           {u"StrDup(1e10, \"a\")", 6},
                                           {u"\"a\".PadLeft(2000000000)", 6},
                                           {u"Replace(StrDup(9999, \"a\"), \"a\", StrDup(9999, \"b\"))", 6},
                                           {u"String.Format(\"{0,2000000000}\", 1)", 5},
                                           {u"Left(\"a\", -1)", 5},
                                           {u"Mid(\"a\", 0)", 5},
                                           {u"\"abc\".Substring(4)", 5},
                                           {u"Parameters!Meses.Value(2)", 9},
                                           {u"Format(1, \"Q\")", 5},
                                           {u"Format(1, \"N999999999\")", 5},
                                           {u"\"a\" Like \"[a\"", 93},
                                           {u"Fields!Otro.Value", 5}});
}

TEST(Faults, deep_nesting_is_one)
{
    const auto repeated = [](TextView text, int count) {
        Text result;
        for (int i = 0; i < count; ++i) result += text;
        return result;
    };
    const Text deep = u"La expresión está anidada a demasiados niveles";
    for (const TextView opening :
         {u"(", u"-", u"Not ", u"IIf(True,", u"{", u"2^-", u"Sum(", u"\"\".Insert(0,"})
        EXPECT_EQ(Expression::of(u"=" + repeated(opening, 10'000)).fault(), deep) << to_utf8(opening);
    EXPECT_EQ(Expression::of(u"=\"a\"" + repeated(u".Trim()", 10'000)).fault(), deep);
    Text trimmed = u"\"a\"";
    for (int i = 0; i < 100; ++i) trimmed = u"(" + trimmed + repeated(u".Trim()", 100) + u")";
    EXPECT_EQ(Expression::of(u"=" + trimmed).fault(), deep);

    EXPECT_EQ(shown(u"=" + repeated(u"(", 150) + u"1" + repeated(u")", 150)), u"1");
    EXPECT_EQ(shown(u"=1" + repeated(u" + 1", 10'000)), u"10001"); // a long row is not deep
}

Variant accumulated(AggregateFunction function, std::initializer_list<Variant> values)
{
    Accumulator accumulator(function);
    for (const Variant& value : values) accumulator.add(value);
    return accumulator.result();
}

TEST(Accumulators, leave_nothing_out)
{
    using enum AggregateFunction;
    EXPECT_EQ(accumulated(sum, {amount(0.1), {}, amount(0.2), 1}), amount(1.3));
    EXPECT_EQ(accumulated(sum, {1, 0.5}), Variant(1.5));
    EXPECT_EQ(accumulated(sum, {u"1.5", u"2"}), Variant(3.5));
    EXPECT_EQ(accumulated(avg, {amount(1), amount(2), {}}), Variant(1.5));
    EXPECT_EQ(accumulated(count, {1, {}, u"a"}), Variant(2));
    EXPECT_EQ(accumulated(count_rows, {1, {}, u"a"}), Variant(3));
    EXPECT_EQ(accumulated(count_distinct, {1, 1.0, u"a", u"A", {}}), Variant(2));
    EXPECT_EQ(accumulated(min, {{}, 3, amount(1.5), 2.0}), amount(1.5));
    EXPECT_EQ(accumulated(max, {Date{1}, Date{3}, {}, Date{2}}), Variant(Date{3}));
    EXPECT_EQ(accumulated(first, {{}, 1, 2}), Variant());
    EXPECT_EQ(accumulated(last, {1, 2, {}}), Variant());
    EXPECT_EQ(accumulated(previous, {1, 2, 3}), Variant(2));
    EXPECT_DOUBLE_EQ(accumulated(var, {2, 4, 4, 4, 5, 5, 7, 9, {}}).number(), 32.0 / 7);
    EXPECT_EQ(accumulated(st_dev_p, {2, 4, 4, 4, 5, 5, 7, 9}), Variant(2.0));
    for (const AggregateFunction function : {sum, avg, min, max, st_dev, var_p, last, previous})
        EXPECT_TRUE(accumulated(function, {}).is_nothing()) << static_cast<int>(function);
    EXPECT_TRUE(accumulated(st_dev, {1}).is_nothing());
    EXPECT_EQ(error_number([] { accumulated(sum, {u"abc"}); }), numbers::type_mismatch);
}

TEST(Sorting, puts_values_as_people_expect_them)
{
    const std::vector<Variant> ascending = {{},      -2,       amount(1.5),   2.0,       Date{1},
                                            Date{2}, u"",      u"Ana",        u"ánfora", u"Ñandú",
                                            u"ñu",   u"Ozono", u"oz\u00F3no", u"pera",   u"Perro"};
    for (std::size_t i = 0; i < ascending.size(); ++i)
        for (std::size_t j = 0; j < ascending.size(); ++j)
            EXPECT_EQ(compare(ascending[i], ascending[j]), i < j ? -1 : (i > j ? 1 : 0)) << i << " " << j;
    EXPECT_EQ(compare(u"PEÑA", u"peña"), 0);
    EXPECT_EQ(compare(2, amount(2)), 0);
}

TEST(Conversions, of_variants)
{
    EXPECT_EQ(Variant(u"2.5").whole_number(), 2);
    EXPECT_EQ(amount(3.5).whole_number(), 4);
    EXPECT_EQ(Variant(u"9007199254740993").whole_number(), 9'007'199'254'740'993);
    EXPECT_EQ(Variant(Date::of(2010, 10, 22, 15)).text(), u"22/10/2010 03:00:00 p. m.");
    EXPECT_EQ(Variant(u"22/10/2010").date(), Date::of(2010, 10, 22));
    for (const double number : {1e19, -1e300, std::nan("")})
        EXPECT_EQ(error_number([&] { Variant(number).whole_number(); }), numbers::overflow) << number;
    for (const double days : {-657'436.0, 2'958'466.0, 1e300, std::nan("")})
        EXPECT_EQ(error_number([&] { Variant(Date{days}).text(); }), numbers::overflow) << days;
}

} // namespace
} // namespace tolvex::printing
