#pragma once

namespace desktop {

class QtBackend;
class QtView;

/// Makes `view` and the label that names it (or the input that it names) partners, when both are there. A
/// label names the sibling with its own name less "Label", whatever that ends with ("MassLabel",
/// "MassEditor"); failing that the one created right behind it. Each label names one widget at most.
void PairWithLabel(QtBackend& backend, QtView& view);

}  // namespace desktop
