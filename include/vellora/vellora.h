#pragma once

/// @file
/// Everything that a host needs of the module.

#include <vellora/base/HostText.h>
#include <vellora/base/PhotoListNode.h>
#include <vellora/base/Types.h>
#include <vellora/filters/FilterAbort.h>
#include <vellora/filters/FilterCatalogue.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/filters/RandomSeed.h>
#include <vellora/host/HostMessage.h>
#include <vellora/host/ImageObj.h>
#include <vellora/host/KORSettings.h>
#include <vellora/host/Language.h>
#include <vellora/host/NodeHandle.h>
#include <vellora/host/PhotoFile.h>
#include <vellora/host/PtrList.h>
#include <vellora/model/ClipInfo.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>
#include <vellora/model/DVDImageText.h>
#include <vellora/project/ProjectCheck.h>
#include <vellora/project/ProjectContents.h>
#include <vellora/text/EffectCatalogue.h>
#include <vellora/text/PhotoTextEffect.h>
#include <vellora/text/TextMacro.h>
