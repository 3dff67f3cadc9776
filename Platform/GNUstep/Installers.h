// The completions that hook into methods which AppKit already has. prepareAppKit calls each of them once, in this
// order.
//
// One line for each completion, in alphabetical order: declare the function in its own .mm under the same name, in
// namespace platform. Completions that only add classes or methods need no line.

QV_INSTALL(installAlphaDrawing)
QV_INSTALL(installBoxHook)
QV_INSTALL(installCachedImagesOnDisplayChange)
QV_INSTALL(installContentViewControllers)
QV_INSTALL(installFontManagerTargetHook)
QV_INSTALL(installHTMLImport)
QV_INSTALL(installHiddenUntilMoved)
QV_INSTALL(installImplicitAnimation)
QV_INSTALL(installKeyViews)
QV_INSTALL(installKeyboardAccess)
QV_INSTALL(installLayers)
QV_INSTALL(installNamedSymbolsHook)
QV_INSTALL(installOpenURLHook)
QV_INSTALL(installPlaceholderDecoding)
QV_INSTALL(installPopUpButtonHook)
QV_INSTALL(installScrollViewTiling)
QV_INSTALL(installSubmenuHooks)
QV_INSTALL(installSymbolsInMenus)
QV_INSTALL(installToolbarDefaultItems)
QV_INSTALL(installToolbarFlexibleSpaces)
QV_INSTALL(installToolbarItemBorders)
QV_INSTALL(installTopLevelObjectRelease)
QV_INSTALL(installUnwritableDefaults)
QV_INSTALL(installViewAppearanceHooks)
QV_INSTALL(installViewDecodingHook)
QV_INSTALL(installWindowIdentity)
QV_INSTALL(installWindowsFollowDisplays)
