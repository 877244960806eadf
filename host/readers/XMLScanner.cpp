#include "readers/XMLScanner.h"

#include "readers/FindPlainRoot.h"
#include "readers/LibXMLScanner.h"
#include "readers/PlainXMLScanner.h"
#include "readers/TByteWindow.h"

namespace NZANQSX20 {

void ScanXML(TByteSource& bytes, const std::string& name, TXMLHandler& handler)
{
   TByteWindow window(bytes);
   while (window.GetText().size() < kPrologBytes && window.Extend()) {
   }
   if (FindPlainRoot(window.GetText()) != std::string_view::npos)
      ScanPlainXML(window, name, handler);
   else
      ScanWithLibXML(window, name, handler);
}

}  // namespace NZANQSX20
