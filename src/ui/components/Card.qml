import QtQuick
import Morvane.Art
import Morvane.Theme

// The ground that the cards of every screen share.
RoundedBox {
    radius: 14
    color: Theme.card
    edgeColor: Theme.cardEdge
    edgeWidth: 0.5
    shadowColor: Theme.shadow(0.05)
    shadowRadius: 1.5
    shadowOffset: 1
}
