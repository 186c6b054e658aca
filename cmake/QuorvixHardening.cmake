# What makes an exploit of a mistake in the programs harder: a place in memory that changes with every
# start, symbols that are resolved and sealed before the program begins, and checks of the stack and
# of buffers. Sanitizers bring checks of their own, which these would hide.
include(CheckPIESupported)
check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang" AND NOT QUORVIX_SANITIZE AND NOT QUORVIX_FUZZ)
    add_compile_options(-fstack-protector-strong)
    # The checks of buffers exist in optimized code only. The definition may come with the compiler;
    # a distributor's own, by the flags of the environment, may be higher and stands.
    if(NOT CMAKE_CXX_FLAGS MATCHES "-D_FORTIFY_SOURCE=[23]")
        set(optimized $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
        add_compile_options($<${optimized}:-U_FORTIFY_SOURCE> $<${optimized}:-D_FORTIFY_SOURCE=2>)
    endif()
    if(UNIX AND NOT APPLE)
        add_link_options(-Wl,-z,relro,-z,now)
    endif()
endif()
