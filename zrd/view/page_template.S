// The page as it is built from the folder page/, as data of the program.
    .section .rodata
    .global vantry_page_template
    .global vantry_page_template_end
vantry_page_template:
    .incbin VANTRY_PAGE_TEMPLATE
vantry_page_template_end:
    .byte 0
    .section .note.GNU-stack, "", %progbits
