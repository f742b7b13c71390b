"""The acts of the tour, in the order in which they are played."""
from act_accidents import Accidents
from act_drawing import Drawing
from act_first_look import FirstLook
from act_looks import Looks
from act_new_business import NewBusiness
from act_printing import Printing
from act_sharing import Sharing

ACTS = [FirstLook, Drawing, Printing, Sharing, Accidents, Looks, NewBusiness]
