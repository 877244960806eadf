// The bundled files as they are: a literal of their size would take the compiler seconds.

   .section .rodata

   .global qsx_style_sheet
   .global qsx_style_sheet_end
qsx_style_sheet:
   .incbin "pages.css"
qsx_style_sheet_end:

   .global qsx_script
   .global qsx_script_end
qsx_script:
   .incbin "pages.js"
qsx_script_end:

   .section .note.GNU-stack, "", %progbits
