target_sources(KTUtility PRIVATE
    PlugIns/KTPlugInClass.cpp
    PlugIns/KTPlugInDefaults.cpp
    PlugIns/KTPlugInLoading.cpp
    PlugIns/KTPlugInManager.cpp
)
