// What LeakSanitizer leaves out: the schema validator that the tests use keeps texts of a schema it
// has read.

extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions()
{
   return "leak:rapidjson::GenericSchemaDocument\n";
}
