target_sources(KTUtility PRIVATE
    PlugIns/KTPlugInClass.cpp
    PlugIns/KTPlugInManager.cpp
    PlugIns/PlugInCode.cpp
    PlugIns/PlugInDefaults.cpp
    PlugIns/PlugInNote.cpp
)
