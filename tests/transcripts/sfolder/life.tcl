source [file join [file dirname [info script]] .. show.tcl]

show sfolder exists
designs new uart
show sfolder exists
folders add docs/figures
folders set_active docs/figures
show sfolder
show sfolder get actual_path
show sfolder get category
show sfolder get revision
show sfolder get vcs
show sfolder exists
file mkdir [file join [design get wfp] docs figures]
show sfolder exists
show sfolder set category Documents::Figures
show sfolder get category
show sfolder set actual_path docs/pictures
show sfolder get actual_path
show sfolder open
show sfolder property exists kept
show sfolder property get kept
show sfolder property set kept double 0.5 false
show sfolder property exists kept
show sfolder property get kept
show sfolder property set kept double half
show sfolder property set kept
show sfolder property remove kept
show sfolder property remove kept
