#include "html/HtmlState.h"

namespace {

constexpr std::string_view kFailed = "Failed";
constexpr std::string_view kAttention = "Attention";
constexpr std::string_view kOk = "OK";
constexpr std::string_view kUnknown = "Unknown";

TMarkup GetName(EState state)
{
   switch (state) {
      case EState::kFailed:
         return "failed"_html;
      case EState::kAttention:
         return "attention"_html;
      case EState::kOk:
         return "ok"_html;
      case EState::kUnknown:
      case EState::kNone:
         break;
   }
   return "unknown"_html;
}

}  // namespace

std::string_view GetStateWord(EState state)
{
   switch (state) {
      case EState::kFailed:
         return kFailed;
      case EState::kAttention:
         return kAttention;
      case EState::kOk:
         return kOk;
      case EState::kUnknown:
         return kUnknown;
      case EState::kNone:
         break;
   }
   return {};
}

TMarkup GetStateColour(EState state)
{
   switch (state) {
      case EState::kFailed:
         return "is-failed"_html;
      case EState::kAttention:
         return "is-attention"_html;
      case EState::kOk:
         return "is-ok"_html;
      case EState::kUnknown:
      case EState::kNone:
         break;
   }
   return "is-unknown"_html;
}

void WriteStateShapes(THtmlSink& out)
{
   out
      << "<svg class=\"shapes\" aria-hidden=\"true\">"
         "<symbol id=\"g-failed\" viewBox=\"0 0 16 16\"><path fill-rule=\"evenodd\" "
         "d=\"M5 1h6l4 4v6l-4 4H5l-4-4V5zM5.2 6.3 6.9 8 5.2 9.7l1.1 1.1L8 9.1l1.7 1.7 1.1-1.1L9.1 "
         "8l1.7-1.7-1.1-1.1L8 6.9 6.3 5.2z\"></path></symbol>"
         "<symbol id=\"g-attention\" viewBox=\"0 0 16 16\"><path fill-rule=\"evenodd\" "
         "d=\"M8 1l7.5 14H.5zM7.2 6v4.6h1.6V6zm0 5.7v1.6h1.6v-1.6z\"></path></symbol>"
         "<symbol id=\"g-ok\" viewBox=\"0 0 16 16\"><path "
         "d=\"M6.3 13.2 1.6 8.5 3 7.1l3.3 3.3L13 3.6l1.4 1.4z\"></path></symbol>"
         "<symbol id=\"g-unknown\" viewBox=\"0 0 16 16\"><circle cx=\"8\" cy=\"8\" r=\"6.7\" "
         "fill=\"none\" stroke=\"currentColor\" stroke-width=\"1.4\" "
         "stroke-dasharray=\"2.6 1.6\"></circle><path d=\"M5.8 6.4C5.8 5 6.8 4.2 8.1 4.2s2.3.8 2.3 "
         "2c0 1.6-1.7 "
         "1.7-1.7 3.1H7.3c0-2 1.6-2.1 1.6-3.1 0-.4-.3-.7-.8-.7s-.9.3-.9.9zM7.2 10.3h1.6v1.6H7.2z\">"
         "</path></symbol></svg>\n"_html;
}

void WriteStateMark(THtmlSink& out, EState state, std::string_view text)
{
   if (state == EState::kNone)
      return;
   const TMarkup name = GetName(state);
   const std::string_view word = GetStateWord(state);
   out << "<span class=\"state is-"_html << name
       << "\"><svg class=\"glyph\" aria-hidden=\"true\"><use href=\"#g-"_html << name
       << "\"></use></svg>"_html;
   const bool saysSo = IsSameWord(text.substr(0, word.size()), word);
   if (saysSo)
      out << "<span class=\"vh\">"_html << TText{word} << ":</span></span>"_html;
   else
      out << TText{word} << "</span> "_html;
}

void WriteStateShape(THtmlSink& out, EState state)
{
   if (state == EState::kNone)
      return;
   const TMarkup name = GetName(state);
   out << "<svg class=\"glyph is-"_html << name << "\" aria-hidden=\"true\"><use href=\"#g-"_html
       << name << "\"></use></svg>"_html;
}

void WriteStateGlyph(THtmlSink& out, EState state)
{
   if (state == EState::kNone || state == EState::kOk)
      return;
   const TMarkup name = GetName(state);
   out << "<svg class=\"glyph is-"_html << name << "\" role=\"img\" aria-label=\""_html
       << TText{GetStateWord(state)} << "\"><use href=\"#g-"_html << name << "\"></use></svg>"_html;
}

TMarkup ChooseByState(EState state, TMarkup failed, TMarkup attention, TMarkup plain)
{
   switch (state) {
      case EState::kFailed:
         return failed;
      case EState::kAttention:
         return attention;
      case EState::kOk:
      case EState::kUnknown:
      case EState::kNone:
         break;
   }
   return plain;
}

TMarkup GetStateClass(EState state)
{
   return ChooseByState(state, "has-failed"_html, "has-attention"_html, ""_html);
}
