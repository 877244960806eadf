#include "html/HtmlSink.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

#include "support/TTemporaryFolder.h"

namespace {

template <typename Value, typename = void>
struct TIsWritable : std::false_type
{};

template <typename Value>
struct TIsWritable<Value,
                   std::void_t<decltype(std::declval<THtmlSink&>() << std::declval<Value>())>>
   : std::true_type
{};

// A text that forgets to say what it is must not compile, and only a literal makes markup.
static_assert(TIsWritable<TText>::value && TIsWritable<TMarkup>::value);
static_assert(!TIsWritable<std::string>::value && !TIsWritable<const char*>::value);
static_assert(!TIsWritable<std::string_view>::value && !TIsWritable<int>::value);
static_assert(!std::is_constructible_v<TMarkup, std::string>);
static_assert(!std::is_constructible_v<TMarkup, const char*>);

template <typename Value>
std::string Render(const Value& value)
{
   TTemporaryFolder folder;
   TOutputFile file(folder.GetPath("page.html"));
   THtmlSink(file) << value;
   file.Close();
   return folder.Read("page.html");
}

struct TTextCase
{
   const char* fReason;
   std::string fText;
   std::string fHtml;
};

const TTextCase kTexts[] = {
   {"nothing to do", "Port 1, 10 Gbit/s\n\tup", "Port 1, 10 Gbit/s\n\tup"},
   {"the five characters", "<a href=\"x\" b='y'>&amp;",
    "&lt;a href=&quot;x&quot; b=&#39;y&#39;&gt;&amp;amp;"},
   {"valid UTF-8 stays",
    "Gr\xC3\xB6\xC3\x9F"
    "e \xE2\x82\xAC \xF0\x9F\x98\x80",
    "Gr\xC3\xB6\xC3\x9F"
    "e \xE2\x82\xAC \xF0\x9F\x98\x80"},
   {"a lone byte, an overlong form, a surrogate, an end in the middle",
    "a\xFF"
    "b\xC0\xAF"
    "c\xED\xA0\x80"
    "d\xE2\x82",
    "a\xEF\xBF\xBD"
    "b\xEF\xBF\xBD\xEF\xBF\xBD"
    "c\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"
    "d\xEF\xBF\xBD"},
   {"an escape can't hide behind a lead byte", "\xE2<b>", "\xEF\xBF\xBD&lt;b&gt;"},
   {"controls are shown", std::string("a\0b\x1B[1m\x7F", 8),
    "a\xE2\x90\x80"
    "b\xE2\x90\x9B[1m\xE2\x90\xA1"},
   {"line ends", "a\r\nb\rc\n", "a\nb\nc\n"},
   {"direction is not turned", "exe.\xE2\x80\xAEgpj", "exe.\xEF\xBF\xBDgpj"},
};

TEST(HtmlSink, TextNeverBecomesMarkup)
{
   for (const TTextCase& test : kTexts)
      EXPECT_EQ(Render(TText{test.fText}), test.fHtml) << test.fReason;
}

TEST(HtmlSink, UrlsNameFilesBesideThePage)
{
   EXPECT_EQ(Render(TFileUrl{"syslog_boot.log~2.html"}), "syslog_boot.log~2.html");
   EXPECT_EQ(Render(TFileUrl{"javascript:x"}), "javascript%3Ax");
   EXPECT_EQ(Render(TFileUrl{"//host/\"?#\xFF"}), "%2F%2Fhost%2F%22%3F%23%FF");
   EXPECT_EQ(Render(TPathUrl{"a/b c//d:e"}), "a/b%20c//d%3Ae");
}

TEST(HtmlSink, CountsHaveCommas)
{
   EXPECT_EQ(Render(TCount{0}), "0");
   EXPECT_EQ(Render(TCount{999}), "999");
   EXPECT_EQ(Render(TCount{1000}), "1,000");
   EXPECT_EQ(Render(TCount{18446744073709551615u}), "18,446,744,073,709,551,615");
}

}  // namespace
